// SPDX-License-Identifier: MIT
#include "platform/DeploymentAddresses.h"
#include "shell/ReviewService.h"
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QString Question = u"Do you enjoy Giggle Archives?"_qs;

class ReviewInvitationTest : public InterfaceFixture {
protected:
    void openListAndInvite()
    {
        skipSeeding();
        insertJoke(context(), {.category = "Animal", .id = 1, .joke = "Moo"});
        insertJoke(context(), {.category = "Corny", .id = 2, .joke = "Pop"});
        context().save();
        openWindow();
        openArea(u"Joke List"_qs);
        key(Qt::Key_F, Qt::ControlModifier);
        ReviewService(userDefaults(), system().storeReview).requestReviewIfDue();
        waitFor(QAccessible::AlertMessage, Question);
    }

    /// Tabs on until the button has the keyboard.
    bool tabTo(const QString& button)
    {
        for (int stops = 0; stops < 30; ++stops) {
            if (find(QAccessible::Button, button)->state().focused)
                return true;
            key(Qt::Key_Tab);
        }
        return false;
    }

    bool isGone()
    {
        return waitUntil([&] { return !find(QAccessible::AlertMessage, Question); });
    }
};

TEST_F(ReviewInvitationTest, LeavesTheUserAloneUntilItIsAnswered)
{
    openListAndInvite();
    type(u"COR"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1 of 2"_qs);
    EXPECT_TRUE(waitUntil([&] {
        return find(QAccessible::List, u"Joke List"_qs)->rect().bottom() <
               find(QAccessible::AlertMessage, Question)->rect().top();
    })) << "the list is covered";
    press(QAccessible::Button, u"Dismiss"_qs);
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(system().addressOpener.opened.isEmpty());
    type(u"NX"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 0 of 2"_qs);
}

TEST_F(ReviewInvitationTest, RateOpensThePageOrTellsItsAddress)
{
    const QUrl page = DeploymentAddresses::storePage();
    openListAndInvite();
    ASSERT_TRUE(tabTo(u"Rate"_qs));
    key(Qt::Key_Return);
    EXPECT_TRUE(isGone());
    EXPECT_EQ(system().addressOpener.opened, QList<QUrl>{page});
    EXPECT_TRUE(names(QAccessible::AlertMessage).isEmpty());

    system().addressOpener.canOpen = false;
    system().storeReview.requestReview();
    press(QAccessible::Button, u"Rate"_qs);
    EXPECT_TRUE(isGone());
    waitFor(QAccessible::AlertMessage, u"There is no program that could open "_qs + page.toString());
}

} // namespace

} // namespace giggle
