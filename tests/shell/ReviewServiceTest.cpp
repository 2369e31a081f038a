// SPDX-License-Identifier: MIT
#include "shell/ReviewService.h"

#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <csignal>

namespace giggle {

namespace {

class ReviewServiceTest : public ScreenFixture {
protected:
    FakeStoreReview& store = system.storeReview;
    QDateTime now = utc("2026-11-21T10:00:00Z");
    ReviewService service{userDefaults, store, [this] { return now; }};

    static QDateTime utc(const char* text)
    {
        return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
    }
};

TEST_F(ReviewServiceTest, AsksOnceInSevenDays)
{
    const struct {
        const char* what;
        const char* last;
        const char* now;
        bool isDue;
    } cases[] = {{"never asked", "", "2026-11-21T10:00:00Z", true},
                 {"just less", "2026-11-14T10:00:01Z", "2026-11-21T10:00:00Z", false},
                 {"exactly", "2026-11-14T10:00:00Z", "2026-11-21T10:00:00Z", false},
                 {"just more", "2026-11-14T09:59:59Z", "2026-11-21T10:00:00Z", true},
                 {"to come", "2027-01-01T00:00:00Z", "2026-11-21T10:00:00Z", false}};

    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const std::optional<QDateTime> last = *c.last ? std::optional(utc(c.last)) : std::nullopt;
        service.setLastRequest(last);
        store.requests.clear();
        now = utc(c.now);
        service.requestReviewIfDue();
        EXPECT_EQ(store.requests.size(), c.isDue ? 1U : 0U);
        EXPECT_EQ(Preferences(folder.filePath(QStringLiteral("preferences.json")))
                      .date(PreferenceKeys::ReviewServiceLastRequest),
                  c.isDue ? now : last);
    }
    userDefaults.setText(PreferenceKeys::ReviewServiceLastRequest, QStringLiteral("no date"));
    EXPECT_EQ(service.lastRequest(), std::nullopt);
}

TEST_F(ReviewServiceTest, TheRequestSuitsTheSystemAndTheMomentIsRememberedAnyway)
{
    using enum StoreReview::ActivationState;
    using Scenes = std::vector<StoreReview::Scene>;
    using Requests = std::vector<std::optional<int>>; // the scene that each names
    const Scenes behind{{1, ForegroundInactive}, {2, Background}};
    const Scenes inFront{{1, Background}, {2, ForegroundActive}, {3, ForegroundActive}};
    const Scenes noWindow{{1, ForegroundActive, false}, {2, ForegroundActive}};
    const Requests anywhere{std::nullopt};

    const struct {
        int version;
        Scenes scenes;
        Requests requests;
    } cases[] = {{12, {}, anywhere}, {13, behind, {}},   {13, inFront, anywhere}, {13, noWindow, {}},
                 {14, behind, {}},   {14, inFront, {2}}, {14, noWindow, {}}};

    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "version " << c.version << ", " << c.scenes.size() << " scenes");
        service.setLastRequest(std::nullopt);
        store.requests.clear();
        store.majorVersion = c.version;
        store.scenes = c.scenes;
        service.requestReviewIfDue();
        EXPECT_EQ(store.requests, c.requests);
        EXPECT_EQ(service.lastRequest(), now);
    }
}

TEST_F(ReviewServiceTest, AClockWithoutAMomentEndsTheProgram)
{
    service.setLastRequest(now);
    now = QDateTime();
    EXPECT_EXIT(service.requestReviewIfDue(), testing::KilledBySignal(SIGABRT), "7 days ago");
}

} // namespace

} // namespace giggle
