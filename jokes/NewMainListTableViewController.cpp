// SPDX-License-Identifier: MIT
#include "jokes/NewMainListTableViewController.h"

#include "jokes/JokeComposition.h"
#include "jokes/SearchPreparation.h"
#include "platform/InterfaceStyle.h"
#include "platform/MessageCapability.h"
#include "platform/Platform.h"
#include "platform/ShareSheet.h"
#include "store/AppDelegate.h"
#include "store/FatalError.h"
#include "store/TextSearch.h"
#include "ui/DisplayText.h"
#include "ui/MainQueue.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <QPointer>

#include <array>

namespace giggle {

namespace {

// What differs between the modes on the face of the screen.
struct ModeTexts {
    QStringView title;
    QStringView placeholder;
};

constexpr std::array ModesTexts{
    ModeTexts{u"Category", u"Search by Category"},
    ModeTexts{u"Rating", u"Search by Rating"},
    ModeTexts{u"Joke", u"Search by Joke"},
    ModeTexts{u"Favorites", u"Search by Favorite"},
};

// What a search looks at, by mode; a search among the favourites filters nothing.
constexpr std::array SearchedAttributes{Attribute::category, Attribute::rating, Attribute::joke};

} // namespace

NewMainListTableViewController::NewMainListTableViewController(ScreenEnvironment& environment)
    : Screen(environment), m_context(environment.appDelegate.persistentContainer().viewContext()),
      m_jokeTableView(*this)
{
}

void NewMainListTableViewController::viewDidLoad()
{
    m_sortAsc = true;
    environment().selection.CallingScreen = QStringLiteral("MainList");
    m_darkMode = environment().platform.interfaceStyle.current() == InterfaceStyle::Style::Dark;
    emit darkModeChanged();
    m_displaySettings = ListDisplaySettings::read(environment().userDefaults);
    fetch();
}

void NewMainListTableViewController::viewDidAppear()
{
    m_jokeTableView.redraw();
    if (!std::exchange(m_isSearchPrepared, true))
        prepareSearchLater(*this, environment().mainQueue, m_context);
}

void NewMainListTableViewController::viewDidDisappear()
{
    setSearchText({});
}

void NewMainListTableViewController::unwound(UnwindRoute)
{
    fetch();
}

void NewMainListTableViewController::fetch()
{
    m_jokeList.clear();
    loggingFailure([this] { m_jokeList = m_context.fetch(fetchRequest()); });
    m_filteredJokeList = m_jokeList;
    m_jokeTableView.reload();
}

FetchRequest<Jokes> NewMainListTableViewController::fetchRequest() const
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    if (!m_sortAsc)
        return request;
    const SortOrder direction = *m_sortAsc ? SortOrder::Ascending : SortOrder::Descending;
    switch (m_selectedSegment) {
    case CategoryMode:
        request.sortDescriptors = {{"category", direction}, {"joke", SortOrder::Ascending}};
        break;
    case RatingMode:
        request.sortDescriptors = {{"rating", direction}, {"joke", SortOrder::Ascending}};
        break;
    case JokeMode:
        request.sortDescriptors = {{"joke", direction}, {"category", SortOrder::Ascending}};
        break;
    case FavoritesMode:
        // Here alone the second key turns round as well.
        request.sortDescriptors = {{"category", direction}, {"joke", direction}};
        request.predicate = Predicate<Jokes>("favorite == %i", 1);
        break;
    default:
        break;
    }
    return request;
}

void NewMainListTableViewController::SortJokesTapped()
{
    if (!m_sortAsc)
        fatalError(QStringLiteral("The joke list was sorted before it was loaded."), __FILE__, __LINE__);
    m_sortAsc = !*m_sortAsc;
    emit sortAscChanged();
    fetch();
}

void NewMainListTableViewController::setSelectedSegment(int segment)
{
    if (segment == m_selectedSegment)
        return;
    m_selectedSegment = segment;
    segmentedControlAction();
}

void NewMainListTableViewController::segmentedControlAction()
{
    emit selectedSegmentChanged();
    fetch();
}

QStringList NewMainListTableViewController::segmentTitles() const
{
    QStringList titles;
    for (const ModeTexts& texts : ModesTexts)
        titles.append(texts.title.toString());
    return titles;
}

QString NewMainListTableViewController::searchPlaceholder() const
{
    const auto mode = static_cast<std::size_t>(m_selectedSegment);
    return mode < ModesTexts.size() ? ModesTexts[mode].placeholder.toString() : QString();
}

void NewMainListTableViewController::setSearchText(const QString& text)
{
    if (text == m_searchText)
        return;
    m_searchText = text;
    emit searchTextChanged();
    updateSearchResults();
}

void NewMainListTableViewController::updateSearchResults()
{
    const auto mode = static_cast<std::size_t>(m_selectedSegment);
    if (!isSearching())
        m_filteredJokeList = m_jokeList;
    else if (mode < SearchedAttributes.size())
        m_filteredJokeList = TextSearch(m_searchText).filter(m_jokeList, SearchedAttributes[mode]);
    m_jokeTableView.reload();
}

int NewMainListTableViewController::numberOfRows() const
{
    return static_cast<int>(listOnShow().size());
}

QString NewMainListTableViewController::headerText() const
{
    const QString all = QString::number(m_jokeList.size());
    if (!isSearching())
        return QStringLiteral("# Jokes = ") + all;
    return QStringLiteral("# Jokes = %1 of %2").arg(QString::number(m_filteredJokeList.size()), all);
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
    if (!isSearching() && m_selectedSegment == CategoryMode && joke.joke().value_or("").empty())
        return cell;
    cell.hasContent = true;
    cell.CategoryLabel = categoryLabel(joke);
    cell.showJoke(joke.joke(), m_displaySettings,
                  m_displaySettings.requiredFont(environment().platform.fonts));
    cell.favorite = joke.favorite().value_or(false);
    cell.RatingLabel = QStringLiteral("Rating: ") + textOrEmpty(joke.rating().value_or("N/A"));
    return cell;
}

QString NewMainListTableViewController::categoryLabel(const Jokes& joke) const
{
    const bool showsMissing =
        !isSearching() && (m_selectedSegment == RatingMode || m_selectedSegment == JokeMode);
    return QStringLiteral("Category: ") +
           textOrEmpty(joke.category().value_or(showsMissing ? "N/A" : ""));
}

void NewMainListTableViewController::selectRow(int row)
{
    if (!hasRow(row))
        return;
    const Jokes& joke = jokeAt(row);
    SharedSelection& selection = environment().selection;
    selection.SelectedCategory = textOrEmpty(joke.category());
    selection.SelectedJokeText = textOrEmpty(joke.joke());
    selection.SelectedFavorite = joke.favorite().value_or(false) ? QStringLiteral("T") : QStringLiteral("F");
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
    m_context.deleteObject(jokeAt(row));
    environment().appDelegate.saveContext();
    m_jokeTableView.removeRow(row, [this, row] {
        JokeArray& list = isSearching() ? m_filteredJokeList : m_jokeList;
        list.erase(list.begin() + row);
    });
}

void NewMainListTableViewController::shareButtonClicked()
{
    if (environment().platform.messageCapability.canSendText()) {
        environment().platform.shareSheet->present({SharedText{composeJokes(listOnShow()).plainText()}}, {});
        return;
    }
    environment().mainQueue.async([self = QPointer(this)] {
        if (self)
            self->environment().navigator.present(
                {QStringLiteral("Can't Send Text Message"),
                 QStringLiteral("Your device is not able to send text messages."),
                 {{QStringLiteral("OK"), {}}}});
    });
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
