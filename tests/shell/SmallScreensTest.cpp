// SPDX-License-Identifier: MIT
// The screens that have too few rules for a file of their own.
#include "platform/DeploymentAddresses.h"
#include "shell/JokeOfDayViewController.h"
#include "shell/OverviewViewController.h"
#include "shell/RateShareTableViewController.h"
#include "tests/support/ScreenFixture.h"

#include <map>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class JokeOfDayTest : public ScreenFixture {
protected:
    JokeOfDayViewController screen{environment};
};

TEST_F(JokeOfDayTest, EveryJokeIsAsLikelyAsAnyOther)
{
    constexpr int Choices = 4000;
    for (const OptionalText text :
         {OptionalText("a"), OptionalText("b"), OptionalText("c'\xC3\xA9"), OptionalText()})
        addJoke({.joke = text});
    screen.viewDidLoad();
    std::map<QString, int> chosen;
    for (int i = 0; i < Choices; ++i) {
        screen.ShuffleJokes();
        ++chosen[screen.jokeTextView()];
    }
    EXPECT_EQ(chosen.size(), 4U);
    EXPECT_TRUE(chosen.contains(u"c'é"_qs) && chosen.contains({}));
    // A fair choice leaves this range about once in ten million runs.
    for (const auto& [joke, count] : chosen)
        EXPECT_NEAR(count, Choices / 4, 150) << joke.toStdString();
}

TEST_F(JokeOfDayTest, AnEmptyCollectionEndsTheProgram)
{
    EXPECT_DEATH(screen.viewDidLoad(), "There is no joke to choose");
}

using OverviewTest = ScreenFixture;

TEST_F(OverviewTest, AMissingGuideStopsTheProgramADamagedOneIsEmpty)
{
    EXPECT_DEATH(OverviewViewController(environment).viewDidLoad(), "guide, overview.pdf, is missing");
    const QString path = system.resources.paths[u"overview.pdf"_qs] = folder.filePath(u"overview.pdf"_qs);
    writeBytes(path, "no document");
    OverviewViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.document()->pageCount(), 0);
}

class RateShareTest : public ScreenFixture {
protected:
    /// What came of pressing a row, in words.
    QStringList outcomeOf(RateShareTableViewController& screen, int row)
    {
        screen.didSelectRow(row);
        QStringList outcome;
        for (const QUrl& address : std::exchange(system.addressOpener.opened, {}))
            outcome << u"opens "_qs + address.toString();
        for (const FakeShareSheet::Request& request : std::exchange(system.shareSheet.presented, {}))
            for (const SharedItem& item : request.items)
                outcome << u"shares "_qs + std::get<SharedText>(item).text;
        for (const Mail& mail : std::exchange(system.mailComposer.presented, {}))
            outcome << u"mails "_qs + mail.recipients.join(u',') + mail.subject + mail.body;
        for (const Alert& alert : std::exchange(navigator.alerts, {}))
            outcome << u"says "_qs + alert.title + u'|' + alert.message + u'|' + alert.actions.front().title;
        return outcome;
    }
};

TEST_F(RateShareTest, EachRowDoesItsOwnWithAndWithoutMessagesAndMail)
{
    RateShareTableViewController screen(environment, QUrl(u"https://store.example/app/id7?x=1"_qs),
                                        u"http://site.example/"_qs);
    const QStringList noMessages{
        u"says Can't Send Text Message|Your Device is not able to send text messages.|OK"_qs};

    const QStringList rate{u"opens https://store.example/app/id7?action=write-review"_qs};
    const QStringList visit{u"opens http://site.example/"_qs};

    const struct {
        int row;
        QStringList able;
        QStringList unable;
    } cases[] = {{0, rate, rate},
                 {1, {u"shares https://store.example/app/id7?x=1"_qs}, noMessages},
                 {2,
                  {u"shares Click the following link to visit the Giggle Archives App website"_qs,
                   u"shares http://site.example/"_qs},
                  noMessages},
                 {3, visit, visit},
                 {4,
                  {u"mails "_qs + DeploymentAddresses::feedbackMailbox() +
                   u"<p>Enter your comments about the Giggle Archives app below: </p>"_qs},
                  {u"says Can't Send Email|Your Device is not able to send Email.|OK"_qs}},
                 {5, {}, {}},
                 {-1, {}, {}}};

    for (const auto& each : cases) {
        SCOPED_TRACE(each.row);
        for (const bool able : {true, false}) {
            system.messageCapability.canSend = system.mailComposer.canSend = able;
            EXPECT_EQ(outcomeOf(screen, each.row), able ? each.able : each.unable);
        }
    }
}

TEST_F(RateShareTest, AWebsiteThatIsNoAddressIsNotOpenedAndABadStorePageStopsTheProgram)
{
    RateShareTableViewController screen(environment, QUrl(u"https://store.example/"_qs), u"http://["_qs);
    EXPECT_EQ(outcomeOf(screen, 3), QStringList());
    EXPECT_DEATH(RateShareTableViewController(environment, QUrl(u"https://["_qs), QString()),
                 "address of the store page");
}

} // namespace

} // namespace giggle
