// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ListPlace.h"

#include <QString>
#include <QStringView>
#include <QUrl>

#include <optional>

namespace giggle {

/// Where the user came from, as SharedSelection::CallingScreen says it. After a save the joke editor returns
/// to the joke list and to the breakdowns.
namespace CallingScreens {

inline constexpr QStringView MainMenu = u"MainMenu";
inline constexpr QStringView MainList = u"MainList";
inline constexpr QStringView CategoryGroup = u"CategoryGroup";
inline constexpr QStringView RatingGroup = u"RatingGroup";
inline constexpr QStringView CategoryBreakdown = u"CategoryBreakdown";
inline constexpr QStringView RatingBreakdown = u"RatingBreakdown";

} // namespace CallingScreens

/// What one screen leaves behind for the next: the joke or name chosen in a list, the screen that opened an
/// editor, a file that is to be imported, where lists were left. One object for the process, handed to every
/// screen by ScreenEnvironment; every value starts empty.
struct SharedSelection {
    /// One of CallingScreens.
    QString CallingScreen;

    QString SelectedCategory;
    QString SelectedJokeText;
    QString SelectedFavorite; ///< "T" or "F", or empty before a joke is chosen
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

    /// Sets SelectedFavorite.
    void setFavorite(bool isFavorite)
    {
        SelectedFavorite = isFavorite ? QStringLiteral("T") : QStringLiteral("F");
    }

    /// What SelectedFavorite says; false while it is empty.
    [[nodiscard]] bool isFavorite() const { return SelectedFavorite == QLatin1StringView("T"); }
};

} // namespace giggle
