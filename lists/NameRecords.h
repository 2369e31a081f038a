// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"
#include "store/FetchRequest.h"

#include <string>
#include <vector>

namespace giggle {

class ManagedObjectContext;
class NamedRecord;

/// The records that hold one side's names, whatever their class. All of them throw StoreError when the
/// records cannot be read.
struct NameRecords {
    using List = std::vector<NamedRecord*>;

    /// All, in the order of insertion.
    List (*all)(ManagedObjectContext& context);

    /// All, in the order of their names.
    List (*sorted)(ManagedObjectContext& context, SortOrder order);

    /// Those with exactly that name, in the order of insertion. One without a name is never among them.
    List (*named)(ManagedObjectContext& context, const std::string& name);

    NamedRecord& (*insert)(ManagedObjectContext& context);
    void (*setName)(NamedRecord& record, const std::string& name);
    void (*remove)(ManagedObjectContext& context, NamedRecord& record);
    void (*restore)(ManagedObjectContext& context, NamedRecord& record);

    /// Whether the order of sorted() has @p left before @p right.
    bool (*isBefore)(const NamedRecord& left, const NamedRecord& right, SortOrder order);
};

extern const NameRecords CategoryRecords;
extern const NameRecords RatingRecords;

} // namespace giggle
