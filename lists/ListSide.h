// SPDX-License-Identifier: MIT
#pragma once

#include "lists/NameRecords.h"
#include "store/FetchRequest.h"
#include "store/Jokes.h"
#include "ui/Navigator.h"

#include <QStringView>

#include <array>
#include <string_view>
#include <vector>

namespace giggle {

struct SharedSelection;

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
    QStringView deletedText; ///< the name follows it
    /// @}

    QStringView listPlace; ///< the list's name in SharedSelection::listPlaces

    /// What a screen reader hears of a search that has found no name, one, and more; so it does on group
    /// screens.
    std::array<QStringView, 3> resultTexts;

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

    const NameRecords& records;

    /// The record's name. One without a name ends the program where the side wants it so.
    [[nodiscard]] OptionalText nameOf(const NamedRecord& record) const;

    // ---- Groups and breakdowns ----

    QStringView groupTabTitle;
    QStringView groupSearchPlaceholder;
    QStringView groupHeader;        ///< in front of the number of names
    QStringView groupHeaderTitle;   ///< behind the number of names on show
    QStringView groupCallingScreen; ///< one of CallingScreens
    QStringView groupListPlace;     ///< the list's name in SharedSelection::listPlaces
    std::vector<std::string_view> (ManagedObjectContext::*namesInJokes)();
    Predicate<Jokes> (*jokesNamed)(std::string_view name);
    QString SharedSelection::*selectedName; ///< hands the chosen name on to the breakdown
    SegueId breakdownSegue;
    QStringView breakdownCallingScreen; ///< while a joke of the breakdown is edited
    UnwindRoute breakdownRoute;         ///< back from its editor
    bool breakdownShowsRating;
};

extern const ListSide CategorySide;
extern const ListSide RatingSide;

} // namespace giggle
