// SPDX-License-Identifier: MIT
#include "lists/ListSide.h"

#include "store/FatalError.h"
#include "store/ManagedObjectContext.h"
#include "store/NamedRecord.h"
#include "ui/SharedSelection.h"

namespace giggle {

constinit const ListSide CategorySide{
    // ---- Name lists ----
    .listTitle = u"Categories",
    .headerPrefix = u"# Categories = ",
    .searchPlaceholder = {},
    .emptyTitle = u"No categories yet",
    .emptyHint = u"Add one, and it can be chosen for every joke.",
    .addTitle = u"Add Category",
    .editTitle = u"Edit Category",
    .fieldName = u"Category",
    .deletedText = u"Category deleted",
    .listPlace = u"categories",
    .resultTexts = {u"No categories found", u"1 category", u"%1 categories"},
    .hasSearch = false,
    .missingName = {}, // a first launch leaves some
    .addSegue = SegueId::AddCategory,
    .editSegue = SegueId::EditCategory,
    .unwindRoute = UnwindRoute::ToCategoryList,
    .nameToRename = &SharedSelection::selectedCategoryName,
    .records = CategoryRecords,

    // ---- Groups and breakdowns ----
    .groupTabTitle = u"Categories",
    .groupSearchPlaceholder = u"Sort and Search by Category",
    .groupHeader = u"# Categories = ",
    .groupHeaderTitle = u" Joke Categories",
    .groupCallingScreen = CallingScreens::CategoryGroup,
    .groupListPlace = u"category groups",
    .namesInJokes = &ManagedObjectContext::categoriesOfJokes,
    .jokesNamed = [](std::string_view name) { return Predicate<Jokes>("category == %@", name); },
    .selectedName = &SharedSelection::SelectedCategory,
    .breakdownSegue = SegueId::CategoryBreakdown,
    .breakdownCallingScreen = CallingScreens::CategoryBreakdown,
    .breakdownRoute = UnwindRoute::ToCategoryBreakdown,
    .breakdownShowsRating = false,
};

constinit const ListSide RatingSide{
    // ---- Name lists ----
    .listTitle = u"Ratings",
    .headerPrefix = u"# Ratings = ",
    .searchPlaceholder = u"Sort and Search By Rating",
    .emptyTitle = u"No ratings yet",
    .emptyHint = u"Add one, and it can be chosen for every joke.",
    .addTitle = u"Add Rating",
    .editTitle = u"Edit Rating",
    .fieldName = u"Rating",
    .deletedText = u"Rating deleted",
    .listPlace = u"ratings",
    .resultTexts = {u"No ratings found", u"1 rating", u"%1 ratings"},
    .hasSearch = true,
    .missingName = u"The collection holds a rating without a name.",
    .addSegue = SegueId::AddRating,
    .editSegue = SegueId::EditRating,
    .unwindRoute = UnwindRoute::ToRatingList,
    .nameToRename = &SharedSelection::selectedRatingName,
    .records = RatingRecords,

    // ---- Groups and breakdowns ----
    .groupTabTitle = u"Ratings",
    .groupSearchPlaceholder = u"Search by Rating",
    .groupHeader = u"# Ratings = ",
    .groupHeaderTitle = u" Joke Ratings",
    .groupCallingScreen = CallingScreens::RatingGroup,
    .groupListPlace = u"rating groups",
    .namesInJokes = &ManagedObjectContext::ratingsOfJokes,
    .jokesNamed = [](std::string_view name) { return Predicate<Jokes>("rating == %@", name); },
    .selectedName = &SharedSelection::SelectedRating,
    .breakdownSegue = SegueId::RatingBreakdown,
    .breakdownCallingScreen = CallingScreens::RatingBreakdown,
    .breakdownRoute = UnwindRoute::ToRatingBreakdown,
    .breakdownShowsRating = true,
};

OptionalText ListSide::nameOf(const NamedRecord& record) const
{
    const OptionalText name = record.name();
    if (!name && !missingName.isEmpty())
        fatalError(missingName.toString(), __FILE__, __LINE__);
    return name;
}

} // namespace giggle
