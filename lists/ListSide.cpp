// SPDX-License-Identifier: MIT
#include "lists/ListSide.h"

#include "store/ManagedObjectContext.h"

namespace giggle {

constinit const ListSide CategorySide{
    // Groups and breakdowns
    .groupTabTitle = u"Categories",
    .groupSearchPlaceholder = u"Sort and Search by Category",
    .groupHeader = u"# Categories = ",
    .groupHeaderTitle = u" Joke Categories",
    .groupCallingScreen = u"CategoryGroup",
    .namesInJokes = &ManagedObjectContext::categoriesOfJokes,
    .jokesNamed = [](std::string_view name) { return Predicate<Jokes>("category == %@", name); },
    .selectedName = &SharedSelection::SelectedCategory,
    .breakdownSegue = SegueId::CategoryBreakdown,
    .breakdownCallingScreen = u"CategoryBreakdown",
    .breakdownRoute = UnwindRoute::ToCategoryBreakdown,
    .breakdownShowsRating = false,
};

constinit const ListSide RatingSide{
    // Groups and breakdowns
    .groupTabTitle = u"Ratings",
    .groupSearchPlaceholder = u"Search by Rating",
    .groupHeader = u"# Ratings = ",
    .groupHeaderTitle = u" Joke Ratings",
    .groupCallingScreen = u"RatingGroup",
    .namesInJokes = &ManagedObjectContext::ratingsOfJokes,
    .jokesNamed = [](std::string_view name) { return Predicate<Jokes>("rating == %@", name); },
    .selectedName = &SharedSelection::SelectedRating,
    .breakdownSegue = SegueId::RatingBreakdown,
    .breakdownCallingScreen = u"RatingBreakdown",
    .breakdownRoute = UnwindRoute::ToRatingBreakdown,
    .breakdownShowsRating = true,
};

} // namespace giggle
