// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"
#include "store/FetchRequest.h"
#include "ui/Navigator.h"

#include <QStringView>

#include <string>
#include <vector>

namespace giggle {

class ManagedObjectContext;
class NamedRecord;
struct SharedSelection;

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
};

/// What distinguishes the category side from the rating side. Screens that come in a pair are one class,
/// handed one of the two constants below; their named classes add nothing but the names of their outlets.
struct ListSide {
    // ---- Name lists, and the screens that add and rename a name ----

    /// @name Texts
    /// @{
    QStringView listTitle;
    QStringView headerPrefix; ///< the number of rows follows it
    QStringView searchPlaceholder;
    QStringView emptyTitle;
    QStringView emptyHint;
    QStringView addTitle;
    QStringView editTitle;
    QStringView fieldName;
    /// @}

    /// Whether the list has a search; where it has none, a search text leaves the rows as they are.
    bool hasSearch;

    /// Why a record without a name ends the program. Empty where such records are nothing special.
    QStringView missingName;

    /// @name Ways
    /// @{
    SegueId addSegue;
    SegueId editSegue;
    UnwindRoute unwindRoute;
    QString SharedSelection::*nameToRename; ///< the name that was chosen in the list
    /// @}

    NameRecords records;

    /// The record's name. One without a name ends the program where the side wants it so.
    [[nodiscard]] OptionalText nameOf(const NamedRecord& record) const;

    // ---- end of the name lists ----
};

extern const ListSide CategorySide;
extern const ListSide RatingSide;

} // namespace giggle
