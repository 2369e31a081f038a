// SPDX-License-Identifier: MIT
#include "lists/ListSide.h"

#include "store/FatalError.h"
#include "store/ManagedObjectContext.h"
#include "ui/SharedSelection.h"

namespace giggle {

namespace {

// ---- Name lists ----

template <class Record>
struct NameAttribute;

template <>
struct NameAttribute<Category> {
    static constexpr SortDescriptor<Category> key{"category"};
    static constexpr PredicateFormat<Category, AttributeType::Text> isNamed{"category = %@"};
    static constexpr auto set = &Category::setCategory;
};

template <>
struct NameAttribute<Rating> {
    static constexpr SortDescriptor<Rating> key{"rating"};
    static constexpr PredicateFormat<Rating, AttributeType::Text> isNamed{"rating = %@"};
    static constexpr auto set = &Rating::setRating;
};

template <class Record>
NameRecords::List fetch(ManagedObjectContext& context, const FetchRequest<Record>& request)
{
    const std::vector<Record*> records = context.fetch(request);
    return {records.begin(), records.end()};
}

template <class Record>
constexpr NameRecords recordsOf()
{
    using Name = NameAttribute<Record>;
    return {
        .all = [](ManagedObjectContext& context) { return fetch(context, Record::fetchRequest()); },
        .sorted =
            [](ManagedObjectContext& context, SortOrder order) {
                FetchRequest<Record> request = Record::fetchRequest();
                request.sortDescriptors = {{Name::key.key, order}};
                return fetch(context, request);
            },
        .named =
            [](ManagedObjectContext& context, const std::string& name) {
                FetchRequest<Record> request = Record::fetchRequest();
                request.predicate = Predicate<Record>(Name::isNamed, name);
                return fetch(context, request);
            },
        .insert = [](ManagedObjectContext& context) -> NamedRecord& { return context.insert<Record>(); },
        .setName = [](NamedRecord& record,
                      const std::string& name) { (static_cast<Record&>(record).*Name::set)(name); },
        .remove = [](ManagedObjectContext& context,
                     NamedRecord& record) { context.deleteObject(static_cast<Record&>(record)); },
    };
}

// ---- end of the name lists ----

} // namespace

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
    .hasSearch = false,
    .missingName = {}, // a first launch leaves some
    .addSegue = SegueId::AddCategory,
    .editSegue = SegueId::EditCategory,
    .unwindRoute = UnwindRoute::ToCategoryList,
    .nameToRename = &SharedSelection::selectedCategoryName,
    .records = recordsOf<Category>(),
    // ---- end of the name lists ----
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
    .hasSearch = true,
    .missingName = u"The collection holds a rating without a name.",
    .addSegue = SegueId::AddRating,
    .editSegue = SegueId::EditRating,
    .unwindRoute = UnwindRoute::ToRatingList,
    .nameToRename = &SharedSelection::selectedRatingName,
    .records = recordsOf<Rating>(),
    // ---- end of the name lists ----
};

OptionalText ListSide::nameOf(const NamedRecord& record) const
{
    // A named record has one attribute only: which one is asked for makes no difference.
    const OptionalText name = record.text(Attribute::category);
    if (!name && !missingName.isEmpty())
        fatalError(missingName.toString(), __FILE__, __LINE__);
    return name;
}

} // namespace giggle
