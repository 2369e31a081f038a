// SPDX-License-Identifier: MIT
#pragma once

#include "lists/CategoryBreakdownTableViewController.h"
#include "lists/CategoryGroupTableViewController.h"
#include "lists/RatingBreakdownTableViewController.h"
#include "lists/RatingGroupTableViewController.h"
#include "tests/support/ScreenFixture.h"

#include <memory>
#include <string>
#include <vector>

namespace giggle {

/// What a test expects to differ between the sides.
struct ExpectedSide {
    const char* testName;
    OptionalText JokeValues::*name;
    void (Jokes::*setName)(OptionalText);
    QString SharedSelection::*selected;
    std::unique_ptr<GroupTableViewController> (*makeGroups)(ScreenEnvironment&);
    std::unique_ptr<BreakdownTableViewController> (*makeBreakdown)(ScreenEnvironment&);
    const char* placeholder;
    const char* header;
    const char* headerTitle;
    const char* groupScreen;
    const char* breakdownScreen;
    SegueId segue;
    UnwindRoute route;
    UnwindRoute otherRoute;
    const char* rowName; ///< of a joke "Dont" of the category and the rating "X"
};

template <class Base, class ScreenClass>
std::unique_ptr<Base> makeSideScreen(ScreenEnvironment& environment)
{
    return std::make_unique<ScreenClass>(environment);
}

inline const ExpectedSide ExpectedSides[] = {
    {"Category", &JokeValues::category, &Jokes::setCategory, &SharedSelection::SelectedCategory,
     makeSideScreen<GroupTableViewController, CategoryGroupTableViewController>,
     makeSideScreen<BreakdownTableViewController, CategoryBreakdownTableViewController>,
     "Sort and Search by Category", "# Categories = ", " Joke Categories", "CategoryGroup",
     "CategoryBreakdown", SegueId::CategoryBreakdown, UnwindRoute::ToCategoryBreakdown,
     UnwindRoute::ToRatingBreakdown, "Dont, Category: X"},
    {"Rating", &JokeValues::rating, &Jokes::setRating, &SharedSelection::SelectedRating,
     makeSideScreen<GroupTableViewController, RatingGroupTableViewController>,
     makeSideScreen<BreakdownTableViewController, RatingBreakdownTableViewController>, "Search by Rating",
     "# Ratings = ", " Joke Ratings", "RatingGroup", "RatingBreakdown", SegueId::RatingBreakdown,
     UnwindRoute::ToRatingBreakdown, UnwindRoute::ToCategoryBreakdown, "Dont, Category: X, Rating: X"},
};

inline std::string sideName(const ::testing::TestParamInfo<ExpectedSide>& info)
{
    return info.param.testName;
}

/// The screens of one side, not loaded yet.
class SideFixture : public ScreenFixture, public ::testing::WithParamInterface<ExpectedSide> {
protected:
    [[nodiscard]] const ExpectedSide& side() const { return GetParam(); }

    /// Adds a joke whose category or rating, whichever the side is about, is @p name.
    Jokes& addNamed(OptionalText name, OptionalText joke = "text")
    {
        JokeValues values{.joke = joke};
        values.*side().name = name;
        return addJoke(values);
    }

    QString& selectedName() { return selection.*side().selected; }

    std::unique_ptr<GroupTableViewController> groups = side().makeGroups(environment);
    std::unique_ptr<BreakdownTableViewController> breakdown = side().makeBreakdown(environment);
};

} // namespace giggle
