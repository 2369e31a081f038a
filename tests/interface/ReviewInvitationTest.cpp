// SPDX-License-Identifier: MIT
#include "platform/DeploymentAddresses.h"
#include "shell/ReviewService.h"
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QString Question = u"Do you enjoy Giggle Archives?"_qs;

TEST_F(InterfaceFixture, AReviewInvitationLeavesTheUserAloneAndOpensThePageOrTellsItsAddress)
{
    const QUrl page = DeploymentAddresses::storePage();
    openWith({{.category = "Animal", .id = 1, .joke = "Moo"}, {.category = "Corny", .id = 2, .joke = "Pop"}});
    openArea(u"Joke List"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    ReviewService(userDefaults(), system().storeReview).requestReviewIfDue();
    waitFor(QAccessible::AlertMessage, Question);
    type(u"COR"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1 of 2"_qs);
    EXPECT_TRUE(waitUntil([&] {
        return find(QAccessible::List, u"Joke List"_qs)->rect().bottom() <
               find(QAccessible::AlertMessage, Question)->rect().top();
    })) << "the list is covered";
    press(QAccessible::Button, u"Dismiss"_qs);
    waitUntilGone(QAccessible::AlertMessage, Question);
    EXPECT_TRUE(system().addressOpener.opened.isEmpty());

    system().storeReview.requestReview();
    waitFor(QAccessible::Button, u"Rate"_qs);
    for (int stops = 0; stops < 30 && !find(QAccessible::Button, u"Rate"_qs)->state().focused; ++stops)
        key(Qt::Key_Tab);
    key(Qt::Key_Return);
    waitUntilGone(QAccessible::AlertMessage, Question);
    EXPECT_EQ(system().addressOpener.opened, QList<QUrl>{page});

    system().addressOpener.canOpen = false;
    system().storeReview.requestReview();
    press(QAccessible::Button, u"Rate"_qs);
    waitFor(QAccessible::AlertMessage, u"There is no program that could open "_qs + page.toString());
}

} // namespace

} // namespace giggle
