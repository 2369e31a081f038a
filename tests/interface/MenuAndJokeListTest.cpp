// SPDX-License-Identifier: MIT
#include "platform/DeploymentAddresses.h"
#include "shell/ReviewService.h"
#include "tests/interface/InterfaceFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QString Moo = u"Moo, Category: Animal, Rating: Mild"_qs;
const QString Pop = u"Pop, Category: Corny, Rating: Adult"_qs;
const QString HiHungry = u"Hi Hungry, Category: Dad, Rating: N/A"_qs;

class MenuAndJokeList : public InterfaceFixture {
protected:
    void openList()
    {
        openWith({{.category = "Animal", .rating = "Mild", .id = 1, .favorite = true, .joke = "Moo"},
                  {.category = "Corny", .rating = "Adult", .id = 2, .joke = "Pop"},
                  {.category = "Dad", .id = 3, .joke = "Hi Hungry"}},
                 u"Joke List"_qs);
        waitFor(QAccessible::ListItem, Moo);
    }
};

TEST_F(MenuAndJokeList, AnAlertHasTheKeyboardAndNotTheMenuBehindIt)
{
    openWindow();
    waitFor(QAccessible::Dialog, u"Initial Setup Recomendations?"_qs);
    waitUntil([&] { return window().activeFocusItem() != nullptr; });
    key(Qt::Key_Return);
    waitUntilGone(QAccessible::Button, u"Ok"_qs);
    openArea(u"Joke List"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 188"_qs);
}

TEST_F(MenuAndJokeList, SegmentsAndSortReorderTheRowsTypingNarrowsThemAndLeavingClearsTheSearch)
{
    openList();
    press(QAccessible::Button, u"Sort"_qs);
    waitForRows({HiHungry, Pop, Moo});
    press(QAccessible::RadioButton, u"Favorites"_qs);
    waitForRows({Moo});
    press(QAccessible::RadioButton, u"Category"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"CORN"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1 of 3"_qs);
    waitForRows({Pop});
    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    openArea(u"Joke List"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 3"_qs);
}

TEST_F(MenuAndJokeList, ARowThatIsDeletedBySwipingOrByItsKeyComesBackByUndo)
{
    openList();
    const auto expectBack = [&](const QString& row, const auto& undo) {
        waitFor(QAccessible::AlertMessage, u"Joke deleted."_qs);
        waitUntilGone(QAccessible::ListItem, row);
        undo();
        waitForRows({Moo, Pop, HiHungry});
        EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::ListItem, row)->state().selected); }));
        EXPECT_FALSE(find(QAccessible::AlertMessage, u"Joke deleted."_qs));
    };
    const QPoint from = centerOf(waitFor(QAccessible::ListItem, Pop));
    QTest::mousePress(&window(), Qt::LeftButton, {}, from);
    for (int moved = 0; moved <= 200; moved += 20)
        QTest::mouseMove(&window(), from - QPoint(moved, 0), 10);
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, from - QPoint(200, 0));
    press(QAccessible::Button, u"delete"_qs);
    expectBack(Pop, [&] { press(QAccessible::Button, u"Undo"_qs); });
    key(Qt::Key_End);
    key(Qt::Key_Delete);
    expectBack(HiHungry, [&] { key(Qt::Key_Z, Qt::ControlModifier); });
}

TEST_F(MenuAndJokeList, TheRowsMenuCopiesItsTextAndHoldingItDoesNotOpenIt)
{
    openList();
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.clear();
    const auto copyByMenu = [&](const QString& text) {
        press(QAccessible::MenuItem, u"Copy"_qs);
        waitFor(QAccessible::AlertMessage, u"Copied."_qs);
        EXPECT_EQ(clipboard.text(), text);
        waitUntilGone(QAccessible::MenuItem, u"Copy"_qs);
    };
    const QPoint pop = centerOf(waitFor(QAccessible::ListItem, Pop));
    QTest::mousePress(&window(), Qt::LeftButton, {}, pop);
    waitFor(QAccessible::MenuItem, u"Copy"_qs);
    QTest::mouseMove(&window(), pop - QPoint(100, 60)); // neither a swipe nor scrolling any more
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, pop - QPoint(100, 60));
    copyByMenu(u"Pop"_qs);
    EXPECT_FALSE(find(QAccessible::Button, u"delete"_qs));
    key(Qt::Key_Up);
    key(Qt::Key_F10, Qt::ShiftModifier);
    copyByMenu(u"Moo"_qs);
    QTest::mouseClick(&window(), Qt::RightButton, {}, centerOf(waitFor(QAccessible::ListItem, HiHungry)));
    copyByMenu(u"Hi Hungry"_qs);
    EXPECT_TRUE(find(QAccessible::List, u"Joke List"_qs)) << "a row has been opened";
}

TEST_F(MenuAndJokeList, TickingARowStoresNothing)
{
    openList();
    press(QAccessible::CheckBox, u"Favorite"_qs); // of the first row, which is the favourite
    EXPECT_FALSE(find(QAccessible::CheckBox, u"Favorite"_qs)->state().checked);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(MenuAndJokeList, TheDeleteKeyHeldDownDeletesOneRowForGood)
{
    openList();
    key(Qt::Key_Down);
    for (const bool isRepeated : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, isRepeated);
        QCoreApplication::sendEvent(&window(), &event);
    }
    waitForRows({Moo, HiHungry});
    restart();
    openArea(u"Joke List"_qs);
    waitForRows({Moo, HiHungry});
}

TEST_F(MenuAndJokeList, AReviewInvitationLeavesTheUserAloneAndOpensThePageOrTellsItsAddress)
{
    const QUrl page = DeploymentAddresses::storePage();
    const QString question = u"Do you enjoy Giggle Archives?"_qs;
    openList();
    key(Qt::Key_F, Qt::ControlModifier);
    ReviewService(userDefaults(), system().storeReview).requestReviewIfDue();
    waitFor(QAccessible::AlertMessage, question);
    type(u"COR"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1 of 3"_qs);
    for (int stops = 0; stops < 30 && !find(QAccessible::Button, u"Rate"_qs)->state().focused; ++stops)
        key(Qt::Key_Tab);
    key(Qt::Key_Return);
    waitUntilGone(QAccessible::AlertMessage, question);
    EXPECT_EQ(system().addressOpener.opened, QList<QUrl>{page});

    system().addressOpener.canOpen = false;
    system().storeReview.requestReview();
    press(QAccessible::Button, u"Rate"_qs);
    waitFor(QAccessible::AlertMessage, u"There is no program that could open "_qs + page.toString());
}

TEST_F(MenuAndJokeList, TheShortcutsAreListedByEachOfTheirKeysButNotByAQuestionMarkThatIsTyped)
{
    openList();
    const auto expectSheet = [&](Qt::Key pressed, Qt::KeyboardModifiers modifiers) {
        key(pressed, modifiers);
        waitFor(QAccessible::ListItem, u"Control N: new joke, category or rating"_qs);
        key(Qt::Key_Escape);
        waitUntilGone(QAccessible::Dialog, u"Keyboard Shortcuts"_qs);
    };
    expectSheet(Qt::Key_Slash, Qt::ControlModifier);
    expectSheet(Qt::Key_Question, Qt::ShiftModifier);
    key(Qt::Key_F, Qt::ControlModifier); // the page has the keyboard again
    type(u"?"_qs);
    waitFor(QAccessible::StaticText, u"Nothing found"_qs);
    EXPECT_FALSE(find(QAccessible::Dialog, u"Keyboard Shortcuts"_qs));
    expectSheet(Qt::Key_F1, Qt::NoModifier);
}

} // namespace

} // namespace giggle
