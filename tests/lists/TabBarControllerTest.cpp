// SPDX-License-Identifier: MIT
#include "lists/TabBarController.h"

#include "tests/support/ScreenFixture.h"

namespace giggle {

class TabBarControllerTest : public ScreenFixture {};

TEST_F(TabBarControllerTest, AGroupScreenComesAndGoesWithItsTab)
{
    addJoke({.category = "Puns", .rating = "Mild"});
    TabBarController tabs(environment);
    tabs.viewDidLoad();
    tabs.viewWillAppear();
    EXPECT_EQ(navigator.navigationBarHidden, true);
    EXPECT_EQ(selection.CallingScreen, QStringLiteral("CategoryGroup"));
    EXPECT_EQ(tabs.ratingGroups()->numberOfRows(), 0) << "not loaded yet";

    tabs.categoryGroups()->setSearchText(QStringLiteral("x"));
    tabs.setSelectedIndex(2);
    EXPECT_EQ(tabs.selectedIndex(), 0);
    tabs.setSelectedIndex(1);
    EXPECT_EQ(tabs.categoryGroups()->searchText(), QString());
    EXPECT_EQ(selection.CallingScreen, QStringLiteral("RatingGroup"));
    EXPECT_EQ(tabs.ratingGroups()->numberOfRows(), 1);
    tabs.ratingGroups()->SortData();
    tabs.setSelectedIndex(0);
    tabs.setSelectedIndex(1);
    EXPECT_FALSE(tabs.ratingGroups()->sortAsc()) << "a tab is loaded once";

    addJoke({.rating = "Adult"});
    selection.CallingScreen.clear();
    tabs.viewWillAppear();
    EXPECT_EQ(selection.CallingScreen, QStringLiteral("RatingGroup"));
    EXPECT_EQ(tabs.ratingGroups()->numberOfRows(), 2);
}

} // namespace giggle
