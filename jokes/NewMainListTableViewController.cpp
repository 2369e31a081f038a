// SPDX-License-Identifier: MIT
#include "jokes/NewMainListTableViewController.h"

#include "jokes/JokeComposition.h"
#include "platform/Platform.h"
#include "store/AppDelegate.h"
#include "store/FatalError.h"
#include "ui/DeletionUndo.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"
#include "ui/TextOutput.h"

namespace giggle {

NewMainListTableViewController::NewMainListTableViewController(ScreenEnvironment& environment)
    : SegmentedJokeListController(environment, QStringLiteral("Search by Category"), QStringLiteral("jokes"))
{
}

void NewMainListTableViewController::viewDidLoad()
{
    environment().selection.CallingScreen = CallingScreens::MainList.toString();
    SegmentedJokeListController::viewDidLoad();
}

void NewMainListTableViewController::viewDidAppear()
{
    table().redraw();
    SegmentedJokeListController::viewDidAppear();
}

void NewMainListTableViewController::unwound(UnwindRoute)
{
    fetch();
}

auto NewMainListTableViewController::sortDescriptors(SortOrder direction) const -> SortDescriptors
{
    switch (selectedSegment()) {
    case CategoryMode:
        return {{"category", direction}, {"joke", SortOrder::Ascending}};
    case RatingMode:
        return {{"rating", direction}, {"joke", SortOrder::Ascending}};
    case JokeMode:
        return {{"joke", direction}, {"category", SortOrder::Ascending}};
    case FavoritesMode:
        // Here alone the second key turns round as well.
        return {{"category", direction}, {"joke", direction}};
    default:
        return {};
    }
}

void NewMainListTableViewController::SortJokesTapped()
{
    if (!isSortable())
        fatalError(QStringLiteral("The joke list was sorted before it was loaded."), __FILE__, __LINE__);
    setSortAsc(!sortAsc());
}

QString NewMainListTableViewController::headerText() const
{
    const QString all = QString::number(jokeList().size());
    if (!isSearching())
        return QStringLiteral("# Jokes = ") + all;
    return QStringLiteral("# Jokes = %1 of %2").arg(QString::number(listOnShow().size()), all);
}

QVariant NewMainListTableViewController::cellForRow(int row) const
{
    return QVariant::fromValue(cellAt(row));
}

NewMainListTableViewCell NewMainListTableViewController::cellAt(int row) const
{
    NewMainListTableViewCell cell;
    cell.cellIndexPath = row;
    if (!hasRow(row))
        return cell;
    const Jokes& joke = jokeAt(row);
    if (!isSearching() && selectedSegment() == CategoryMode && joke.joke().value_or("").empty())
        return cell;
    cell.hasContent = true;
    cell.CategoryLabel = categoryLabel(joke);
    cell.showJoke(joke.joke(), displaySettings(),
                  displaySettings().requiredFont(environment().platform.fonts));
    cell.favorite = joke.favorite().value_or(false);
    cell.RatingLabel = QStringLiteral("Rating: ") + textOrEmpty(joke.rating().value_or("N/A"));
    return cell;
}

QString NewMainListTableViewController::categoryLabel(const Jokes& joke) const
{
    const bool showsMissing =
        !isSearching() && (selectedSegment() == RatingMode || selectedSegment() == JokeMode);
    return QStringLiteral("Category: ") + textOrEmpty(joke.category().value_or(showsMissing ? "N/A" : ""));
}

void NewMainListTableViewController::selectRow(int row)
{
    if (!hasRow(row))
        return;
    const Jokes& joke = jokeAt(row);
    SharedSelection& selection = environment().selection;
    selection.SelectedCategory = textOrEmpty(joke.category());
    selection.SelectedJokeText = textOrEmpty(joke.joke());
    selection.setFavorite(joke.favorite().value_or(false));
    selection.SelectedRating = textOrEmpty(joke.rating());
    environment().navigator.performSegue(SegueId::EditJoke);
}

void NewMainListTableViewController::checkBoxClicked(int row, bool isChecked)
{
    if (hasRow(row))
        cellAt(row).CheckBoxClicked(isChecked, environment().selection);
}

void NewMainListTableViewController::deleteRow(int row)
{
    if (!hasRow(row))
        return;
    Jokes& joke = jokeAt(row);
    viewContext().deleteObject(joke);
    environment().appDelegate.saveContext();
    removeFromListOnShow(row);
    offerToTakeBackDeletion(
        environment(), QStringLiteral("Joke deleted."), [this, &joke] { viewContext().restore(joke); },
        [this, &joke] { putBackOnLists(joke); });
}

void NewMainListTableViewController::copyRow(int row)
{
    if (hasRow(row))
        copyText(environment(), textOrEmpty(jokeAt(row).joke()));
}

void NewMainListTableViewController::shareButtonClicked()
{
    shareText(*this, environment(), [this] { return composeJokes(listOnShow()).plainText(); });
}

void NewMainListTableViewController::PrintJokes()
{
    printText(environment(), composeJokes(listOnShow()).attributedText());
}

void NewMainListTableViewController::AddTapped()
{
    environment().navigator.performSegue(SegueId::AddJoke);
}

bool NewMainListTableViewController::canPerform(SegueId segue) const
{
    return environment().navigator.canPerform(segue);
}

} // namespace giggle
