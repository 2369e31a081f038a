// SPDX-License-Identifier: MIT
#pragma once

#include "store/FetchRequest.h"
#include "store/Jokes.h"
#include "ui/Navigator.h"
#include "ui/SharedSelection.h"

#include <QString>

#include <string_view>
#include <vector>

namespace giggle {

class ManagedObjectContext;

/// What the category side and the rating side of the lists differ in. The screens of both sides are the same
/// otherwise.
struct ListSide {
    /// @name Groups and breakdowns
    /// @{
    QStringView groupTabTitle;
    QStringView groupSearchPlaceholder;
    QStringView groupHeader;      ///< in front of the number of names
    QStringView groupHeaderTitle; ///< behind the number of names on show
    QStringView groupCallingScreen;
    std::vector<std::string_view> (ManagedObjectContext::*namesInJokes)();
    Predicate<Jokes> (*jokesNamed)(std::string_view name);
    QString SharedSelection::*selectedName; ///< hands the chosen name on to the breakdown
    SegueId breakdownSegue;
    QStringView breakdownCallingScreen; ///< while a joke of the breakdown is edited
    UnwindRoute breakdownRoute;         ///< back from its editor
    bool breakdownShowsRating;
    /// @}
};

extern const ListSide CategorySide;
extern const ListSide RatingSide;

} // namespace giggle
