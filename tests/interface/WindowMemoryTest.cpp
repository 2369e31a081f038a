// SPDX-License-Identifier: MIT
#include "app/WindowMemory.h"

#include "tests/interface/InterfaceFixture.h"

#include <QDir>
#include <QFile>
#include <QScreen>
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
            insertJoke(context(),
                       {.category = "Puns", .id = i, .joke = QString::number(1000 + i).toStdString()});
        context().save();
    }

    static QString joke(int id) { return u"%1, Category: Puns, Rating: N/A"_qs.arg(1000 + id); }

    /// What is in sight, in the order of the texts.
    QStringList rows()
    {
        QStringList rows = names(QAccessible::ListItem);
        rows.sort();
        return rows;
    }

    /// Scrolls away from the top and waits until that is noted.
    QStringList scroll()
    {
        for (int i = 0; i < 5; ++i)
            key(Qt::Key_PageDown);
        QTest::qWait(300);
        EXPECT_FALSE(rows().contains(joke(1)));
        return rows();
    }
};

TEST_F(WindowMemoryTest, TheListIsWhereItWasLeft)
{
    openWindow();
    openArea(u"Joke List"_qs);
    const QStringList left = scroll();
    const auto isThere = [&] { return waitUntil([&] { return rows() == left; }); };

    press(QAccessible::ListItem, left[1]);
    waitFor(QAccessible::Heading, u"Edit Joke"_qs);
    press(QAccessible::Button, u"Save"_qs); // fetches the jokes again
    EXPECT_TRUE(isThere()) << "after an editor";

    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    openArea(u"Joke List"_qs);
    EXPECT_TRUE(isThere()) << "from the menu";

    restart();
    openArea(u"Joke List"_qs);
    EXPECT_TRUE(isThere()) << "after a restart";

    press(QAccessible::Button, u"Sort"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().contains(joke(1)); }));
}

TEST_F(WindowMemoryTest, AJokeThatWasSearchedForIsInSightWhenItsEditorIsLeft)
{
    openWindow();
    openArea(u"Joke List"_qs);
    press(QAccessible::RadioButton, u"Joke"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"1070"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 1 of 100"_qs);
    press(QAccessible::ListItem, joke(70));
    waitFor(QAccessible::Heading, u"Edit Joke"_qs);
    waitUntil([&] { return !find(QAccessible::Heading, u"# Jokes = 1 of 100"_qs); });
    QTest::qWait(100);
    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 100"_qs);
    EXPECT_TRUE(waitUntil([&] { return rows().contains(joke(70)); }));
}

TEST_F(WindowMemoryTest, OnlyASizeThatTheUserHasGivenIsKept)
{
    openWindow(QSize());
    EXPECT_EQ(window().size(), UsualSize);
    window().resize(500, 600);
    QTest::qWait(400);
    window().showFullScreen();
    QTest::qWait(400);
    restart();
    EXPECT_EQ(window().size(), QSize(500, 600));
    EXPECT_EQ(window().windowStates(), Qt::WindowNoState);

    window().showMaximized();
    QTest::qWait(400);
    restart();
    EXPECT_EQ(window().windowStates(), Qt::WindowMaximized);
    window().showNormal();
    window().resize(window().screen()->availableSize()); // as window managers do that know no states
    QTest::qWait(400);
    restart();
    EXPECT_EQ(window().size(), QSize(500, 600));
}

TEST_F(WindowMemoryTest, WhatAFileSaysIsTakenAsFarAsItMakesSense)
{
    struct {
        QByteArray content;
        QSize size;
        std::size_t numberOfLists = 0;
    } cases[] = {
        {R"({"window":{"width":500,"height":600},"lists":{"jokes":{"row":7}}})", {500, 600}, 1},
        {R"({"window":{"width":1,"height":100000}})", {320, 800}}, // the least, and the screen's
        {R"({"window":{"width":500,"height":600},"lists":{"jokes":{"row":-7},"x":{"row":1,"offset":1e9}}})",
         {500, 600}},
        {R"({"window":{"width":"wide","height":-4,"maximized":1},"lists":{"jokes":7}})", {}},
        {R"({"window":[],"lists":3})", {}},
        {R"({"window":{"wid)", {}},
        {"[1, 2]", {}},
        {QByteArray(200'000, ' ') + R"({"window":{"width":500,"height":600}})", {}}, // too large to be ours
    };

    for (const auto& one : cases) {
        QFile file(windowMemory());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(one.content);
        file.close();
        ListPlaces places;
        WindowMemory memory(places);
        memory.open(file.fileName());
        QVariantMap expected{{u"height"_qs, UsualSize.height()}};
        if (one.size.isValid())
            expected = {{u"width"_qs, one.size.width()}, {u"height"_qs, one.size.height()}};
        EXPECT_EQ(memory.windowProperties(), expected) << one.content.left(80).toStdString();
        EXPECT_EQ(places.size(), one.numberOfLists) << one.content.left(80).toStdString();
    }
}

TEST_F(WindowMemoryTest, AFileThatCannotBeWrittenDisturbsNobody)
{
    ASSERT_TRUE(QDir().mkpath(windowMemory()));
    openWindow(QSize());
    window().resize(500, 600);
    QTest::qWait(400);
    restart();
    EXPECT_EQ(window().size(), UsualSize);
}

} // namespace

} // namespace giggle
