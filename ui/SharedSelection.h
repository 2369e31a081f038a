// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ListPlace.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace giggle {

/// What one screen leaves behind for the next: the joke or name chosen in a list, the screen that opened an
/// editor, a file that is to be imported, where lists were left. One object for the process, handed to every
/// screen by ScreenEnvironment; every value starts empty.
struct SharedSelection {
    /// The screen to which an editor returns after a save: "MainMenu", "MainList", "CategoryGroup",
    /// "RatingGroup", "CategoryBreakdown" or "RatingBreakdown".
    QString CallingScreen;

    QString SelectedCategory;
    QString SelectedJokeText;
    QString SelectedFavorite; ///< "T" or "F"
    QString SelectedRating;

    /// The names that were last chosen in the category list and in the rating list.
    QString selectedCategoryName;
    QString selectedRatingName;

    /// The direction that was last chosen in either of these lists: true for ascending. Each of them starts
    /// ascending all the same.
    std::optional<bool> SortAsc;

    /// A file that came from outside and waits for the import screen, which takes it away.
    QUrl DocumentToImport;

    /// Where lists were left.
    ListPlaces listPlaces;
};

} // namespace giggle
