// SPDX-License-Identifier: MIT
#include "jokes/SegmentedJokeListController.h"

#include "jokes/SearchPreparation.h"
#include "platform/InterfaceStyle.h"
#include "platform/Platform.h"
#include "store/ManagedObjectContext.h"
#include "store/RecordSorting.h"
#include "store/TextSearch.h"
#include "ui/DeletionUndo.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <array>
#include <utility>

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

SegmentedJokeListController::SegmentedJokeListController(ScreenEnvironment& environment, QString placeholder,
                                                         QString placeName)
    : Screen(environment), m_searchPlaceholder(std::move(placeholder)), m_placeName(std::move(placeName)),
      m_table(*this)
{
    keepPlace();
}

void SegmentedJokeListController::keepPlace()
{
    m_table.keepPlaceIn(environment().selection.listPlaces[m_placeName + QString::number(m_selectedSegment)]);
}

void SegmentedJokeListController::viewDidLoad()
{
    m_sortAsc = true;
    m_darkMode = environment().platform.interfaceStyle.current() == InterfaceStyle::Style::Dark;
    emit darkModeChanged();
    m_displaySettings = ListDisplaySettings::read(environment().userDefaults);
    fetch();
}

void SegmentedJokeListController::viewDidAppear()
{
    if (!std::exchange(m_isSearchPrepared, true))
        prepareSearchLater(*this, environment().mainQueue, viewContext());
}

void SegmentedJokeListController::viewDidDisappear()
{
    setSearchText({});
}

void SegmentedJokeListController::fetch()
{
    m_jokeList.clear();
    const bool isFetched = loggingFailure([this] { m_jokeList = viewContext().fetch(fetchRequest()); });
    m_filteredJokeList = m_jokeList;
    m_isNarrowed = false;
    if (isFetched)
        jokesFetched();
    listOnShowChanged();
    m_table.reload();
}

FetchRequest<Jokes> SegmentedJokeListController::fetchRequest() const
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    if (!m_sortAsc)
        return request;
    request.sortDescriptors = sortDescriptors(*m_sortAsc ? SortOrder::Ascending : SortOrder::Descending);
    if (m_selectedSegment == FavoritesMode)
        request.predicate = Predicate<Jokes>("favorite == %i", 1);
    return request;
}

void SegmentedJokeListController::setSortAsc(bool ascending)
{
    m_sortAsc = ascending;
    emit sortAscChanged();
    fetch();
}

void SegmentedJokeListController::setSelectedSegment(int segment)
{
    if (segment == m_selectedSegment)
        return;
    m_selectedSegment = segment;
    segmentedControlAction();
}

void SegmentedJokeListController::segmentedControlAction()
{
    const auto mode = static_cast<std::size_t>(m_selectedSegment);
    m_searchPlaceholder = mode < ModesTexts.size() ? ModesTexts[mode].placeholder.toString() : QString();
    keepPlace();
    emit selectedSegmentChanged();
    fetch();
}

QStringList SegmentedJokeListController::segmentTitles() const
{
    QStringList titles;
    for (const ModeTexts& texts : ModesTexts)
        titles.append(texts.title.toString());
    return titles;
}

void SegmentedJokeListController::setSearchText(const QString& text)
{
    if (text == m_searchText)
        return;
    m_searchText = text;
    emit searchTextChanged();
    updateSearchResults();
}

void SegmentedJokeListController::updateSearchResults()
{
    m_isNarrowed = isSearching() && static_cast<std::size_t>(m_selectedSegment) < SearchedAttributes.size();
    if (m_isNarrowed)
        m_filteredJokeList = found(m_jokeList);
    else if (!isSearching())
        m_filteredJokeList = m_jokeList;
    listOnShowChanged();
    m_table.reload();
}

auto SegmentedJokeListController::found(const JokeArray& source) const -> JokeArray
{
    const Attribute searched = SearchedAttributes.at(static_cast<std::size_t>(m_selectedSegment));
    return TextSearch(m_searchText).filter(source, searched);
}

int SegmentedJokeListController::numberOfRows() const
{
    return static_cast<int>(listOnShow().size());
}

RowIdentity SegmentedJokeListController::identityOfRow(int row) const
{
    return hasRow(row) ? jokeAt(row).oid() : NoIdentity;
}

void SegmentedJokeListController::removeFromListOnShow(int row)
{
    m_table.removeRow(row, [this, row] {
        JokeArray& list = isSearching() ? m_filteredJokeList : m_jokeList;
        list.erase(list.begin() + row);
    });
}

void SegmentedJokeListController::putBackOnLists(Jokes& joke)
{
    const FetchRequest<Jokes> request = fetchRequest();
    if (request.predicate && !request.predicate->matches(joke))
        return;
    const RecordSorter<Jokes> sorter(request.sortDescriptors);
    const auto isBefore = [&](const Jokes* a, const Jokes* b) { return sorter.isBefore(a, b); };
    // While a search is on, the row's list comes last: the header counts both.
    const bool isShown = putBackInOrder(m_jokeList, joke, isBefore, isSearching() ? nullptr : &m_table);
    const bool isFound = !m_isNarrowed || !found({&joke}).empty();
    const bool isInSearch =
        isFound && putBackInOrder(m_filteredJokeList, joke, isBefore, isSearching() ? &m_table : nullptr);
    if (!isShown && !isInSearch)
        m_table.redraw();
}

} // namespace giggle
