// SPDX-License-Identifier: MIT
#include "app/WindowMemory.h"

#include "tests/interface/InterfaceFixture.h"

#include <QTest>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

// The screen of these tests has 800 rows, and a title bar has to have room.
const QSize UsualSize(420, 736);

class WindowMemoryTest : public InterfaceFixture {
protected:
    WindowMemoryTest()
    {
        skipSeeding();
        for (std::int16_t i = 1; i <= 100; ++i)
            insertJoke(context(), {.category = "Puns", .id = i, .joke = std::to_string(1000 + i)});
        context().save();
    }

    static QString joke(int id) { return u"%1, Category: Puns, Rating: N/A"_qs.arg(1000 + id); }

    /// What is in sight, in the order of the texts.
    QStringList inSight()
    {
        QStringList rows = names(QAccessible::ListItem);
        rows.sort();
        return rows;
    }

    void waitForNotes() { QTest::qWait(400); }
};

TEST_F(WindowMemoryTest, TheListIsWhereItWasLeftAndShowsTheJokeThatWasFound)
{
    openWindow();
    openArea(u"Joke List"_qs);
    for (int i = 0; i < 5; ++i)
        key(Qt::Key_PageDown);
    waitForNotes();
    const QStringList left = inSight();
    EXPECT_FALSE(left.contains(joke(1)));
    const auto isThere = [&] { return waitUntil([&] { return inSight() == left; }); };

    openPage(QAccessible::ListItem, left[1]);
    press(QAccessible::Button, u"Save"_qs); // fetches the jokes again
    EXPECT_TRUE(isThere()) << "after an editor";

    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    openArea(u"Joke List"_qs);
    EXPECT_TRUE(isThere()) << "from the menu";

    restart();
    openArea(u"Joke List"_qs);
    EXPECT_TRUE(isThere()) << "after a restart";

    press(QAccessible::RadioButton, u"Joke"_qs);
    waitFor(QAccessible::ListItem, joke(1));
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"1070"_qs);
    waitForRows({joke(70)});
    openPage(QAccessible::ListItem, joke(70));
    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 100"_qs);
    waitFor(QAccessible::ListItem, joke(70)); // the search is over, and it is in sight all the same
}

TEST_F(WindowMemoryTest, OnlyASizeThatTheUserHasGivenIsKept)
{
    openWindow(QSize());
    EXPECT_EQ(window().size(), UsualSize);
    window().resize(500, 600);
    waitForNotes();
    window().showFullScreen();
    waitForNotes();
    restart();
    EXPECT_EQ(window().size(), QSize(500, 600));
    EXPECT_EQ(window().windowStates(), Qt::WindowNoState);
    window().showMaximized();
    waitForNotes();
    restart();
    EXPECT_EQ(window().windowStates(), Qt::WindowMaximized);
}

TEST_F(WindowMemoryTest, WhatAFileSaysIsTakenAsFarAsItMakesSense)
{
    struct {
        QByteArray content;
        QSize size{0, UsualSize.height()};
        std::size_t numberOfLists = 0;
    } const cases[] = {
        {R"({"window":{"width":500,"height":600},"lists":{"jokes":{"row":7}}})", {500, 600}, 1},
        {R"({"window":{"width":1,"height":100000}})", {320, 800}}, // the least, and the screen's
        {R"({"window":{"width":500,"height":600},"lists":{"jokes":{"row":-7},"x":{"row":1,"offset":1e9}}})",
         {500, 600}},
        {R"({"window":{"width":"wide","height":-4,"maximized":1},"lists":{"jokes":7}})"},
        {R"({"window":[],"lists":3})"},
        {R"({"window":{"wid)"},
        {QByteArray(200'000, ' ') + R"({"window":{"width":500,"height":600}})"}, // too large to be ours
    };

    for (const auto& one : cases) {
        writeBytes(windowMemory(), one.content);
        ListPlaces places;
        WindowMemory memory(places);
        memory.open(windowMemory());
        const QVariantMap found = memory.windowProperties();
        EXPECT_EQ(QSize(found[u"width"_qs].toInt(), found[u"height"_qs].toInt()), one.size)
            << one.content.left(80).toStdString();
        EXPECT_EQ(places.size(), one.numberOfLists) << one.content.left(80).toStdString();
    }
}

} // namespace

} // namespace giggle
