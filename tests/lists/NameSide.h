// SPDX-License-Identifier: MIT
#pragma once

#include "lists/AddCategoryViewController.h"
#include "lists/AddRatingViewController.h"
#include "lists/CategoryTableViewController.h"
#include "lists/EditCategoryViewController.h"
#include "lists/EditRatingViewController.h"
#include "lists/RatingTableViewController.h"
#include "tests/support/CollectionFolder.h"
#include "ui/SharedSelection.h"

#include <memory>
#include <string>

namespace giggle {

/// One side's classes, and what its screens are expected to say and do.
struct NameSide {
    std::string name;
    QString listTitle;
    QString header;
    QString searchPlaceholder;
    QString addTitle;
    QString editTitle;
    QString fieldName;
    SegueId addSegue;
    SegueId editSegue;
    UnwindRoute route;
    QString SharedSelection::*selectedName;
    std::string table; ///< whose one column has its name

    std::unique_ptr<NameListViewController> (*makeList)(ScreenEnvironment&);
    std::unique_ptr<NameEditor> (*makeAdd)(ScreenEnvironment&);
    std::unique_ptr<NameEditor> (*makeEdit)(ScreenEnvironment&);
    void (*insert)(ManagedObjectContext&, OptionalText name);
    QString (*label)(const QVariant& cell);
};

template <class Base, class ScreenClass>
std::unique_ptr<Base> makeNameScreen(ScreenEnvironment& environment)
{
    return std::make_unique<ScreenClass>(environment);
}

inline const NameSide CategoryNames{
    .name = "Category",
    .listTitle = QStringLiteral("Categories"),
    .header = QStringLiteral("# Categories = "),
    .searchPlaceholder = {},
    .addTitle = QStringLiteral("Add Category"),
    .editTitle = QStringLiteral("Edit Category"),
    .fieldName = QStringLiteral("Category"),
    .addSegue = SegueId::AddCategory,
    .editSegue = SegueId::EditCategory,
    .route = UnwindRoute::ToCategoryList,
    .selectedName = &SharedSelection::selectedCategoryName,
    .table = "category",
    .makeList = makeNameScreen<NameListViewController, CategoryTableViewController>,
    .makeAdd = makeNameScreen<NameEditor, AddCategoryViewController>,
    .makeEdit = makeNameScreen<NameEditor, EditCategoryViewController>,
    .insert = [](ManagedObjectContext& context, OptionalText name) { insertCategory(context, name); },
    .label = [](const QVariant& cell) { return cell.value<CategoryTableViewCell>().CategoryNameLabel; },
};

inline const NameSide RatingNames{
    .name = "Rating",
    .listTitle = QStringLiteral("Ratings"),
    .header = QStringLiteral("# Ratings = "),
    .searchPlaceholder = QStringLiteral("Sort and Search By Rating"),
    .addTitle = QStringLiteral("Add Rating"),
    .editTitle = QStringLiteral("Edit Rating"),
    .fieldName = QStringLiteral("Rating"),
    .addSegue = SegueId::AddRating,
    .editSegue = SegueId::EditRating,
    .route = UnwindRoute::ToRatingList,
    .selectedName = &SharedSelection::selectedRatingName,
    .table = "rating",
    .makeList = makeNameScreen<NameListViewController, RatingTableViewController>,
    .makeAdd = makeNameScreen<NameEditor, AddRatingViewController>,
    .makeEdit = makeNameScreen<NameEditor, EditRatingViewController>,
    .insert = [](ManagedObjectContext& context, OptionalText name) { insertRating(context, name); },
    .label = [](const QVariant& cell) { return cell.value<RatingTableViewCell>().RatingNameLabel; },
};

} // namespace giggle
