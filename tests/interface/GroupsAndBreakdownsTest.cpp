// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QClipboard>
#include <QGuiApplication>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class GroupsAndBreakdowns : public InterfaceFixture {
protected:
    GroupsAndBreakdowns()
    {
        openWith({{.category = "Animal", .rating = "Mild", .id = 1, .joke = "Moo"},
                  {.category = "Puns", .rating = "Adult", .id = 2, .joke = "Pop"},
                  {.category = "Puns", .id = 3, .joke = "Hi Hungry"}},
                 u"Jokes by Category"_qs);
        waitFor(QAccessible::List, u"Jokes by Category"_qs);
    }
};

const QString Hungry = u"Hi Hungry, Category: Puns"_qs;
const QString Pop = u"Pop, Category: Puns"_qs;

TEST_F(GroupsAndBreakdowns, AnEditIsSavedAndLandsInTheBreakdownAgain)
{
    openPage(QAccessible::ListItem, u"Puns, 2"_qs);
    waitForRows({Hungry, Pop});
    press(QAccessible::ListItem, Pop);
    waitFor(QAccessible::EditableText, u"Category"_qs)->setText(QAccessible::Value, u"Corny"_qs);
    press(QAccessible::Button, u"Save"_qs);
    waitFor(QAccessible::Heading, u"1 Jokes"_qs);
    waitFor(QAccessible::Heading, u"(Puns)"_qs);
    waitForRows({Hungry});
    press(QAccessible::Button, u"Back"_qs);
    waitForRows({u"Animal, 1"_qs, u"Corny, 1"_qs, u"Puns, 1"_qs});
}

TEST_F(GroupsAndBreakdowns, KeysTabsSortAndSearch)
{
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    waitFor(QAccessible::Heading, u"2 Jokes"_qs);
    waitUntilGone(QAccessible::PageTab, u"Ratings"_qs);
    key(Qt::Key_Space);
    EXPECT_TRUE(find(QAccessible::CheckBox, u"Favorite"_qs)->state().checked);
    EXPECT_FALSE(context().hasChanges());
    key(Qt::Key_Delete);
    waitForRows({Hungry, Pop}); // nothing is deleted here
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Hi Hungry"_qs);
    key(Qt::Key_Escape);
    waitFor(QAccessible::PageTab, u"Ratings"_qs);
    focus(QAccessible::PageTab, u"Categories"_qs);
    key(Qt::Key_Right);
    waitFor(QAccessible::Heading, u"# Ratings = 2"_qs);
    press(QAccessible::Button, u"Sort"_qs);
    waitForRows({u"Mild, 1"_qs, u"Adult, 1"_qs});
    openPage(QAccessible::ListItem, u"Adult, 1"_qs);
    waitForRows({Pop + u", Rating: Adult"_qs});
    key(Qt::Key_Escape);
    waitUntilGone(QAccessible::Heading, u"(Adult)"_qs);
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
