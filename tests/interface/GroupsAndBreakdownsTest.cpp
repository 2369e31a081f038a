// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class GroupsAndBreakdowns : public InterfaceFixture {
protected:
    void openGroups()
    {
        openArea(u"Jokes by Category"_qs);
        waitFor(QAccessible::List, u"Jokes by Category"_qs);
    }

    void fill()
    {
        skipSeeding();
        insertJoke(context(), {.category = "Animal", .rating = "Mild", .id = 1, .joke = "Moo"});
        insertJoke(context(), {.category = "Puns", .rating = "Adult", .id = 2, .joke = "Pop"});
        insertJoke(context(), {.category = "Puns", .id = 3, .joke = "Hi Hungry"});
        context().save();
    }

    /// Presses a row of the groups and waits for its breakdown.
    void openBreakdown(const QString& row, const QString& title)
    {
        press(QAccessible::ListItem, row);
        waitFor(QAccessible::Heading, title);
        EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::ListItem, row); }));
    }

    bool hasRows(const QStringList& rows)
    {
        return waitUntil([&] { return names(QAccessible::ListItem) == rows; });
    }
};

const QString Hungry = u"Hi Hungry, Category: Puns"_qs;
const QString Pop = u"Pop, Category: Puns"_qs;

TEST_F(GroupsAndBreakdowns, ATickAndAnEditAreSavedAndEditingLandsInTheBreakdownAgain)
{
    fill();
    openWindow();
    openGroups();
    openBreakdown(u"Puns, 2"_qs, u"(Puns)"_qs);
    EXPECT_TRUE(hasRows({Hungry, Pop}));
    press(QAccessible::CheckBox, u"Favorite"_qs);
    EXPECT_TRUE(find(QAccessible::CheckBox, u"Favorite"_qs)->state().checked);
    EXPECT_FALSE(context().hasChanges());
    press(QAccessible::ListItem, Pop);
    waitFor(QAccessible::EditableText, u"Category"_qs)->setText(QAccessible::Value, u"Corny"_qs);
    press(QAccessible::Button, u"Save"_qs);
    waitFor(QAccessible::Heading, u"1 Jokes"_qs);
    waitFor(QAccessible::Heading, u"(Puns)"_qs);
    EXPECT_TRUE(hasRows({Hungry}));
    press(QAccessible::Button, u"Back"_qs);
    EXPECT_TRUE(hasRows({u"Animal, 1"_qs, u"Corny, 1"_qs, u"Puns, 1"_qs}));
    restart();
    openGroups();
    openBreakdown(u"Puns, 1"_qs, u"(Puns)"_qs);
    EXPECT_TRUE(waitFor(QAccessible::CheckBox, u"Favorite"_qs)->state().checked);
}

TEST_F(GroupsAndBreakdowns, KeysTabsSortAndSearch)
{
    fill();
    openWindow();
    openGroups();
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    waitFor(QAccessible::Heading, u"2 Jokes"_qs);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::PageTab, u"Ratings"_qs); }));
    key(Qt::Key_Space);
    EXPECT_TRUE(find(QAccessible::CheckBox, u"Favorite"_qs)->state().checked);
    key(Qt::Key_Delete);
    EXPECT_TRUE(hasRows({Hungry, Pop})) << "nothing is deleted here";
    key(Qt::Key_Escape);
    waitFor(QAccessible::PageTab, u"Ratings"_qs);
    for (int stops = 0; stops < 10 && !find(QAccessible::PageTab, u"Categories"_qs)->state().focused; ++stops)
        key(Qt::Key_Tab);
    key(Qt::Key_Right);
    waitFor(QAccessible::Heading, u"# Ratings = 2"_qs);
    waitFor(QAccessible::EditableText, u"Search by Rating"_qs);
    press(QAccessible::Button, u"Sort"_qs);
    EXPECT_TRUE(hasRows({u"Mild, 1"_qs, u"Adult, 1"_qs}));
    openBreakdown(u"Adult, 1"_qs, u"(Adult)"_qs);
    EXPECT_TRUE(hasRows({Pop + u", Rating: Adult"_qs}));
    key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Heading, u"(Adult)"_qs); }));
    press(QAccessible::PageTab, u"Categories"_qs);
    waitFor(QAccessible::Heading, u"# Categories = 2"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"PUN"_qs);
    waitFor(QAccessible::Heading, u"# Categories = 1 of 2"_qs);
    for (const QString& tab : {u"Ratings"_qs, u"Categories"_qs})
        press(QAccessible::PageTab, tab);
    waitFor(QAccessible::Heading, u"# Categories = 2"_qs);
}

} // namespace

} // namespace giggle
