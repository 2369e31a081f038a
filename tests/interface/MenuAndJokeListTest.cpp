// SPDX-License-Identifier: MIT
#include "checkbox/VaneCheckbox.h"
#include "tests/interface/InterfaceFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class MenuAndJokeList : public InterfaceFixture {
protected:
    void fill()
    {
        skipSeeding();
        insertJoke(context(),
                   {.category = "Animal", .rating = "Mild", .id = 1, .favorite = true, .joke = "Moo"});
        insertJoke(context(), {.category = "Corny", .rating = "Adult", .id = 2, .joke = "Pop"});
        insertJoke(context(), {.category = "Dad", .id = 3, .joke = "Hi Hungry"});
        context().save();
    }

    void openList()
    {
        openArea(u"Joke List"_qs);
        waitFor(QAccessible::Heading, u"# Jokes = 3"_qs);
    }

    QStringList rows() { return names(QAccessible::ListItem); }

    std::size_t storedJokes() { return context().fetch(Jokes::fetchRequest()).size(); }
};

const QString Moo = u"Moo, Category: Animal, Rating: Mild"_qs;
const QString Pop = u"Pop, Category: Corny, Rating: Adult"_qs;
const QString HiHungry = u"Hi Hungry, Category: Dad, Rating: N/A"_qs;

TEST_F(MenuAndJokeList, FirstLaunchSeedsAndRecommendsOnce)
{
    openWindow();
    waitFor(QAccessible::Dialog, u"Initial Setup Recomendations?"_qs);
    waitUntil([&] { return window().activeFocusItem() != nullptr; });
    key(Qt::Key_Return); // the alert has the keyboard, not the menu behind it
    ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::Button, u"Ok"_qs); }));
    openArea(u"Joke List"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 188"_qs);

    restart();
    EXPECT_FALSE(find(QAccessible::Button, u"Ok"_qs));
    openArea(u"Joke List"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 188"_qs);
}

TEST_F(MenuAndJokeList, SegmentsAndSortReorderTheRowsTypingNarrowsThemAndLeavingClearsTheSearch)
{
    fill();
    openWindow();
    openList();
    EXPECT_EQ(rows(), QStringList({Moo, Pop, HiHungry}));
    press(QAccessible::Button, u"Sort"_qs);
    ASSERT_TRUE(waitUntil([&] { return rows() == QStringList({HiHungry, Pop, Moo}); }));
    press(QAccessible::RadioButton, u"Favorites"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1"_qs);
    EXPECT_TRUE(find(QAccessible::EditableText, u"Search by Favorite"_qs));
    press(QAccessible::RadioButton, u"Category"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"CORN"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1 of 3"_qs);
    EXPECT_EQ(rows(), QStringList({Pop}));
    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    openList();
}

TEST_F(MenuAndJokeList, SwipingARowUncoversDelete)
{
    fill();
    openWindow();
    openList();
    const QPoint from = centerOf(waitFor(QAccessible::ListItem, Pop));
    QTest::mousePress(&window(), Qt::LeftButton, {}, from);
    for (int moved = 0; moved <= 200; moved += 20)
        QTest::mouseMove(&window(), from - QPoint(moved, 0), 10);
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, from - QPoint(200, 0));
    press(QAccessible::Button, u"delete"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 2"_qs);
    EXPECT_EQ(storedJokes(), 2u);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::ListItem, Pop); })) << "the row is still shown";
}

TEST_F(MenuAndJokeList, ADeletedRowComesBackByUndo)
{
    fill();
    openWindow();
    openList();
    const QString offer = u"Joke deleted."_qs;
    const auto deleteAndUndo = [&](Qt::Key wayToRow, const QString& row, const auto& undo) {
        key(wayToRow);
        key(Qt::Key_Delete);
        waitFor(QAccessible::AlertMessage, offer);
        ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::ListItem, row); }));
        EXPECT_FALSE(find(QAccessible::Button, u"Dismiss"_qs));
        undo();
        ASSERT_TRUE(waitUntil([&] { return rows() == QStringList({Moo, Pop, HiHungry}); }));
        EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::ListItem, row)->state().selected); }));
        EXPECT_FALSE(find(QAccessible::AlertMessage, offer));
        waitFor(QAccessible::Heading, u"# Jokes = 3"_qs);
    };
    deleteAndUndo(Qt::Key_Down, Pop, [&] { press(QAccessible::Button, u"Undo"_qs); });
    deleteAndUndo(Qt::Key_End, HiHungry, [&] { key(Qt::Key_Z, Qt::ControlModifier); });
    key(Qt::Key_Delete);
    waitFor(QAccessible::AlertMessage, offer);
    key(Qt::Key_Escape);
    waitFor(QAccessible::Button, u"Menu"_qs);
    EXPECT_FALSE(find(QAccessible::AlertMessage, offer));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(storedJokes(), 2u);
}

TEST_F(MenuAndJokeList, TheRowsMenuCopiesItsTextAndHoldingItDoesNotOpenIt)
{
    fill();
    openWindow();
    openList();
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.clear();
    const auto copyByMenu = [&](const QString& text) {
        press(QAccessible::MenuItem, u"Copy"_qs);
        waitFor(QAccessible::AlertMessage, u"Copied."_qs);
        EXPECT_EQ(clipboard.text(), text);
        EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::MenuItem, u"Copy"_qs); }));
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
    key(Qt::Key_Up);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text(), u"Pop"_qs);
    EXPECT_TRUE(find(QAccessible::List, u"Joke List"_qs)) << "a row has been opened";
}

TEST_F(MenuAndJokeList, TickingARowStoresNothing)
{
    fill();
    openWindow();
    openList();
    const auto isTicked = [&] { return bool(find(QAccessible::CheckBox, u"Favorite"_qs)->state().checked); };
    ASSERT_TRUE(isTicked()); // the first row is the favourite
    press(QAccessible::CheckBox, u"Favorite"_qs);
    EXPECT_FALSE(isTicked());
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(MenuAndJokeList, BoxesOfRowsThatFlyPastDoNotMove)
{
    skipSeeding();
    for (int i = 0; i < 100; ++i)
        insertJoke(context(),
                   {.category = "Animal", .favorite = i % 2 == 0, .joke = std::to_string(1000 + i)});
    context().save();
    openWindow();
    openArea(u"Joke List"_qs);
    auto* list = window().findChild<QQuickItem*>(u"JokeTableView"_qs);
    ASSERT_NE(list, nullptr);
    const auto boxes = [&] {
        QList<VaneCheckbox*> shown;
        const auto collect = [&](const auto& self, const QQuickItem& item) -> void {
            for (QQuickItem* child : item.childItems())
                if (auto* box = qobject_cast<VaneCheckbox*>(child); box && box->isVisible())
                    shown << box;
                else
                    self(self, *child);
        };
        collect(collect, *list);
        return shown;
    };
    int ticked = 0;
    for (int step = 0; step < 40; ++step) {
        list->setProperty("contentY", list->property("contentY").toReal() + 70);
        ASSERT_FALSE(boxes().isEmpty());
        for (const VaneCheckbox* box : boxes()) {
            EXPECT_FALSE(box->isAnimating()) << step;
            ticked += box->isChecked();
        }
    }
    EXPECT_GT(ticked, 40);
    boxes().first()->toggle();
    EXPECT_TRUE(boxes().first()->isAnimating());
}

TEST_F(MenuAndJokeList, TheDeleteKeyHeldDownDeletesOneRowForGood)
{
    fill();
    openWindow();
    openList();
    key(Qt::Key_Down);
    for (const bool isRepeated : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, isRepeated);
        QCoreApplication::sendEvent(&window(), &event);
    }
    waitFor(QAccessible::Heading, u"# Jokes = 2"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList({Moo, HiHungry}); }));
    key(Qt::Key_Tab); // to the row's box
    key(Qt::Key_Up);
    restart();
    openArea(u"Joke List"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows() == QStringList({Moo, HiHungry}); }));
}

TEST_F(MenuAndJokeList, EveryControlHasANameAtEverySize)
{
    fill();
    for (const QSize size : {QSize(360, 640), QSize(720, 360), QSize(1280, 800)}) {
        openWindow(size);
        openList();
        for (const auto role : {QAccessible::Button, QAccessible::CheckBox, QAccessible::EditableText,
                                QAccessible::List, QAccessible::ListItem, QAccessible::RadioButton})
            EXPECT_FALSE(names(role).contains(QString())) << "role " << role << " at width " << size.width();
        EXPECT_FALSE(names(QAccessible::ListItem).isEmpty()) << size.width();
    }
}

} // namespace

} // namespace giggle
