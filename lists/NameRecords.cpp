// SPDX-License-Identifier: MIT
#include "lists/NameRecords.h"

#include "store/Category.h"
#include "store/ManagedObjectContext.h"
#include "store/Rating.h"
#include "store/RecordSorting.h"

#include <array>

namespace giggle {

namespace {

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
        .restore = [](ManagedObjectContext& context,
                      NamedRecord& record) { context.restore(static_cast<Record&>(record)); },
        .isBefore =
            [](const NamedRecord& left, const NamedRecord& right, SortOrder order) {
                const std::array descriptors{SortDescriptor<Record>{Name::key.key, order}};
                return RecordSorter<Record>(descriptors)
                    .isBefore(&static_cast<const Record&>(left), &static_cast<const Record&>(right));
            },
    };
}

} // namespace

constinit const NameRecords CategoryRecords = recordsOf<Category>();
constinit const NameRecords RatingRecords = recordsOf<Rating>();

} // namespace giggle
