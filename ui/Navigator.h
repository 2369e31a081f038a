// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Alert.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace giggle {

/// The ways that lead from one screen to another. Which screen a way opens is known to the storyboard alone.
namespace Segues {

Q_NAMESPACE
QML_ELEMENT

enum class Id {
    JokeList,
    AddJoke,
    TabBarController, ///< the jokes by category and by rating, in two tabs
    JokeOfDay,
    Print,
    ReferenceLists,
    DefaultSettings,
    ImportExport,
    RateShare,
    AppOverview,
    EditJoke,
    ExportJokes,
    ImportJokes,
    CategoryList,
    AddCategory,
    EditCategory,
    RatingList,
    AddRating,
    EditRating,
    CategoryBreakdown,
    RatingBreakdown,
};
Q_ENUM_NS(Id)

} // namespace Segues

using SegueId = Segues::Id;

/// The named ways back. Each ends at the nearest screen of its kind below the current one.
enum class UnwindRoute {
    ToList,
    ToMenu,
    ToMainMenu,
    ToCategoryList,
    ToRatingList,
    ToCategoryBreakdown,
    ToRatingBreakdown,
};

/// How screens move on, go back and speak to the user. Implemented by NavigationController.
class Navigator {
public:
    virtual ~Navigator() = default;

    /// Whether performSegue would open a screen.
    [[nodiscard]] virtual bool canPerform(SegueId segue) const = 0;

    /// Tells the current screen (prepareForSegue), then opens the screen behind @p segue on top of it.
    virtual void performSegue(SegueId segue) = 0;

    /// Closes the screens above the route's target and tells the target. Without such a screen on the stack
    /// everything stays as it is.
    virtual void unwind(UnwindRoute route) = 0;

    /// Shows @p alert; alerts queue up behind one that is on show.
    virtual void present(Alert alert) = 0;

    /// Says in passing that something was done.
    virtual void confirm(const QString& text) = 0;

    /// Says in passing what was just done, and calls @p undo if the user takes that back. The offer ends with
    /// the next one, and before the current screen is left.
    virtual void offerUndo(const QString& text, std::function<void()> undo) = 0;

    virtual void setNavigationBarHidden(bool hidden) = 0;
};

} // namespace giggle
