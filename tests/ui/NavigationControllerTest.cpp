// SPDX-License-Identifier: MIT
#include "ui/NavigationController.h"

#include "tests/support/ScreenFixture.h"

#include <QCoreApplication>

#include <string>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Journal = std::vector<std::string>;

/// Writes its life down in a journal that it shares with the others.
class RecordingScreen : public Screen {
public:
    RecordingScreen(ScreenEnvironment& environment, Journal& journal, std::string name)
        : Screen(environment), m_journal(journal), m_name(std::move(name))
    {
    }

    ~RecordingScreen() override { note("deleted"); }

    QString title() const override { return QString::fromStdString(m_name); }

    void viewDidLoad() override { note("load"); }

    void viewWillAppear() override { note("will appear"); }

    void viewDidAppear() override { note("did appear"); }

    void viewDidDisappear() override { note("did disappear"); }

    void prepareForSegue(SegueId) override { note("prepare"); }

private:
    void note(const std::string& event) { m_journal.push_back(m_name + " " + event); }

    Journal& m_journal;
    std::string m_name;
};

/// Makes the menu, the list above it and the editor above that.
class NavigationControllerTest : public ScreenFixture, public SceneFactory {
protected:
    NavigationControllerTest()
    {
        QObject::connect(&navigation, &NavigationController::pushed, &navigation,
                         [this](Screen* screen) { pages.push_back(screen); });
        QObject::connect(&navigation, &NavigationController::popped, &navigation,
                         [this](int count) { pages.resize(pages.size() - static_cast<std::size_t>(count)); });
    }

    bool hasScene(SegueId) const override { return true; }

    Scene makeRoot() override { return make("menu"); }

    Scene makeScene(SegueId segue) override { return make(segue == SegueId::JokeList ? "list" : "editor"); }

    Scene make(const char* name)
    {
        return {std::make_unique<RecordingScreen>(environment, journal, name), QUrl(u"Page.qml"_s)};
    }

    /// The pages' transition has ended.
    void settle() { navigation.pageDidAppear(pages.back()); }

    /// What has happened since the last time.
    Journal news() { return std::exchange(journal, {}); }

    Journal journal;
    NavigationController navigation{*this};
    std::vector<Screen*> pages;
};

TEST_F(NavigationControllerTest, RunsTheLifeCycleOfPushesAndWaysBack)
{
    navigation.start();
    EXPECT_THAT(news(), ElementsAre("menu load", "menu will appear"));
    settle();
    EXPECT_THAT(news(), ElementsAre("menu did appear"));
    navigation.performSegue(SegueId::JokeList);
    navigation.performSegue(SegueId::JokeList); // the second of two quick presses
    EXPECT_THAT(news(), ElementsAre("menu prepare", "list load", "list will appear"));
    settle();
    settle();
    EXPECT_THAT(news(), ElementsAre("menu did disappear", "list did appear"));
    Screen* list = pages.back();
    navigation.back();
    EXPECT_THAT(news(), ElementsAre("menu will appear"));
    settle();
    EXPECT_THAT(news(), ElementsAre("list did disappear", "menu did appear"));
    navigation.pageRemoved(list);
    EXPECT_THAT(news(), IsEmpty()) << "deleted while the page may still look at it";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_THAT(news(), ElementsAre("list deleted"));

    navigation.performSegue(SegueId::JokeList);
    news();
    navigation.back(); // before the page has come to rest
    settle();
    EXPECT_THAT(news(), ElementsAre("menu will appear", "list did disappear", "menu did appear"));
}

TEST_F(NavigationControllerTest, ShowsAlertsOneAfterTheOther)
{
    const auto present = [this](const QString& title, std::function<void()> handler) {
        navigation.present({title, {}, {{u"OK"_s, std::move(handler)}}});
    };
    bool wasAlertAway = false;
    present(u"first"_s, [&] {
        wasAlertAway = !navigation.alert().shown;
        present(u"third"_s, {});
    });
    present(u"second"_s, {});
    navigation.alertAnswered(1);
    EXPECT_EQ(navigation.alert().title, u"first"_s) << "there is no second button";
    for (const char* next : {"second", "third"}) {
        navigation.alertAnswered(0);
        EXPECT_EQ(navigation.alert().title, QString::fromLatin1(next));
    }
    EXPECT_TRUE(wasAlertAway);
    navigation.alertAnswered(0);
    EXPECT_FALSE(navigation.alert().shown);
    navigation.alertAnswered(0);
}

TEST_F(NavigationControllerTest, AnOfferToUndoEndsWithTheNextOneAndWithItsScreen)
{
    navigation.start();
    PassingNotices& notices = *navigation.passingNotices();
    std::string undone;
    const QString deleted = QStringLiteral("Joke deleted.");
    for (const char* name : {"a", "b"})
        navigation.offerUndo(deleted, [&undone, name] { undone += name; });
    notices.undo();
    notices.undo();
    EXPECT_EQ(undone, "b");
    EXPECT_EQ(notices.undoOffer(), QString());

    for (const auto& leave : {std::function<void()>([&] { navigation.performSegue(SegueId::JokeList); }),
                              std::function<void()>([&] { navigation.back(); })}) {
        navigation.confirm(QStringLiteral("Copied."));
        navigation.offerUndo(deleted, [&] { undone = "too late"; });
        leave();
        notices.undo();
        EXPECT_EQ(notices.undoOffer() + notices.confirmation(), QString());
    }
    EXPECT_EQ(undone, "b");
}

TEST_F(NavigationControllerTest, APageThatCannotBeLoadedEndsTheProgram)
{
    EXPECT_DEATH(navigation.pageFailed(QUrl(u"qrc:/a/Page.qml"_s), u"no such type"_s),
                 "Page.qml cannot be shown: no such type");
}

} // namespace

} // namespace giggle
