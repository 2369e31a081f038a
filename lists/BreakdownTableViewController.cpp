// SPDX-License-Identifier: MIT
#include "lists/BreakdownTableViewController.h"

#include "jokes/JokeComposition.h"
#include "jokes/SearchPreparation.h"
#include "platform/InterfaceStyle.h"
#include "platform/Platform.h"
#include "store/ManagedObjectContext.h"
#include "store/TextSearch.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"
#include "ui/TextOutput.h"

#include <utility>

namespace giggle {

BreakdownTableViewController::BreakdownTableViewController(ScreenEnvironment& environment,
                                                           const ListSide& side)
    : SearchableTableViewController(environment, side)
{
}

void BreakdownTableViewController::viewDidLoad()
{
    SearchableTableViewController::viewDidLoad();
    SharedSelection& selection = environment().selection;
    m_title = u'(' + selection.*side().selectedName + u')';
    // Not the breakdown's own: that comes when a joke is opened for editing.
    selection.CallingScreen = CallingScreens::MainList.toString();
    m_darkMode = environment().platform.interfaceStyle.current() == InterfaceStyle::Style::Dark;
    m_displaySettings = ListDisplaySettings::read(environment().userDefaults);
    m_font = m_displaySettings.fontOrDefault(environment().platform.fonts);
    loadJokes();
    tableView()->reload();
}

void BreakdownTableViewController::viewWillAppear()
{
    // The groups below have hidden it.
    environment().navigator.setNavigationBarHidden(false);
}

void BreakdownTableViewController::viewDidAppear()
{
    if (!std::exchange(m_isSearchPrepared, true))
        prepareSearchLater(*this, environment().mainQueue, viewContext());
}

void BreakdownTableViewController::unwound(UnwindRoute)
{
    loadJokes();
    tableView()->redraw();
}

void BreakdownTableViewController::loadJokes()
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.predicate = side().jokesNamed((environment().selection.*side().selectedName).toStdString());
    request.sortDescriptors = {{"joke", sortAsc() ? SortOrder::Ascending : SortOrder::Descending}};
    m_jokeList.clear();
    loggingFailure([&] { m_jokeList = viewContext().fetch(request); });
}

void BreakdownTableViewController::sortDirectionChanged()
{
    loadJokes();
}

void BreakdownTableViewController::updateSearchResults()
{
    m_filteredJokeList =
        isSearching() ? TextSearch(searchText()).filter(m_jokeList, Attribute::joke) : m_jokeList;
}

int BreakdownTableViewController::numberOfRows() const
{
    return static_cast<int>(listOnShow().size());
}

QVariant BreakdownTableViewController::cellForRow(int row) const
{
    return QVariant::fromValue(cellAt(row));
}

NewMainListTableViewCell BreakdownTableViewController::cellAt(int row) const
{
    NewMainListTableViewCell cell;
    if (!hasRow(row))
        return cell;
    const Jokes& joke = jokeAt(row);
    cell.hasContent = true;
    cell.cellIndexPath = row;
    cell.CategoryLabel = QStringLiteral("Category: ") + textOrEmpty(joke.category());
    cell.showJoke(joke.joke(), m_displaySettings, m_font);
    cell.favorite = joke.favorite().value_or(false);
    if (side().breakdownShowsRating)
        cell.RatingLabel = QStringLiteral("Rating: ") + textOrEmpty(joke.rating());
    return cell;
}

RowIdentity BreakdownTableViewController::identityOfRow(int row) const
{
    return hasRow(row) ? jokeAt(row).oid() : NoIdentity;
}

QString BreakdownTableViewController::headerText() const
{
    return QString::number(listOnShow().size()) + QStringLiteral(" Jokes");
}

QString BreakdownTableViewController::searchPlaceholder() const
{
    return QStringLiteral("Sort and Search by Joke");
}

void BreakdownTableViewController::selectRow(int row)
{
    if (!hasRow(row))
        return;
    const Jokes& joke = jokeAt(row);
    SharedSelection& selection = environment().selection;
    if (joke.joke())
        selection.SelectedJokeText = textOrEmpty(joke.joke());
    if (joke.category())
        selection.SelectedCategory = textOrEmpty(joke.category());
    environment().navigator.performSegue(SegueId::EditJoke);
}

void BreakdownTableViewController::prepareForSegue(SegueId)
{
    environment().selection.CallingScreen = side().breakdownCallingScreen.toString();
}

void BreakdownTableViewController::shareButtonClicked()
{
    shareText(*this, environment(), [this] { return composeJokes(listOnShow()).plainText(); });
}

void BreakdownTableViewController::PrintJokes()
{
    printText(environment(), composeJokes(listOnShow()).attributedText());
}

void BreakdownTableViewController::copyRow(int row)
{
    if (hasRow(row))
        copyText(environment(), textOrEmpty(jokeAt(row).joke()));
}

void BreakdownTableViewController::checkBoxClicked(int row, bool isChecked)
{
    if (!hasRow(row))
        return;
    NewMainListTableViewCell cell = cellAt(row);
    cell.checkBoxDelegate = this;
    cell.CheckBoxClicked(isChecked, environment().selection);
}

void BreakdownTableViewController::checkBoxSelectionChanged(bool, int indexPath)
{
    if (!hasRow(indexPath))
        return;
    jokeAt(indexPath).setFavorite(environment().selection.isFavorite());
    loggingFailure([this] { viewContext().save(); });
}

} // namespace giggle
