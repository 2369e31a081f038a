// SPDX-License-Identifier: MIT
#include "lists/GroupTableViewController.h"

#include "store/ManagedObjectContext.h"
#include "store/TextSearch.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace giggle {

GroupTableViewController::GroupTableViewController(ScreenEnvironment& environment, const ListSide& side)
    : SearchableTableViewController(environment, side)
{
    tableView()->keepPlaceIn(environment.selection.listPlaces[side.groupListPlace.toString()]);
    connect(tableView(), &TableModel::headerTextChanged, this, &GroupTableViewController::headerTitleChanged);
}

void GroupTableViewController::viewDidLoad()
{
    SearchableTableViewController::viewDidLoad();
    loadGroups();
    tableView()->reload();
    environment().selection.CallingScreen = side().groupCallingScreen.toString();
}

void GroupTableViewController::viewWillAppear()
{
    loadGroups();
    tableView()->redraw();
    environment().selection.CallingScreen = side().groupCallingScreen.toString();
}

void GroupTableViewController::loadGroups()
{
    loggingFailure([this] {
        for (const std::string_view name : (viewContext().*side().namesInJokes)())
            m_list.emplace_back(name);
    });
    sort(m_list);
    m_list.erase(std::unique(m_list.begin(), m_list.end()), m_list.end());
}

void GroupTableViewController::sort(NameList& names) const
{
    if (sortAsc())
        std::ranges::sort(names);
    else
        std::ranges::sort(names, std::greater());
}

void GroupTableViewController::sortDirectionChanged()
{
    if (isSearching())
        sort(m_filteredList);
    else
        loadGroups();
}

void GroupTableViewController::updateSearchResults()
{
    m_filteredList.clear();
    if (!isSearching())
        m_filteredList = m_list;
    else
        std::ranges::copy_if(m_list, std::back_inserter(m_filteredList),
                             [search = TextSearch(searchText())](const std::string& name) {
                                 return search.isContainedIn(name);
                             });
}

int GroupTableViewController::numberOfRows() const
{
    return static_cast<int>(listOnShow().size());
}

QVariant GroupTableViewController::cellForRow(int row) const
{
    if (!hasRow(row))
        return QVariant::fromValue(GroupTableViewCell());
    const std::string& name = listOnShow()[static_cast<std::size_t>(row)];
    return QVariant::fromValue(GroupTableViewCell{textOrEmpty(name), QString::number(numberOfJokes(name))});
}

RowIdentity GroupTableViewController::identityOfRow(int row) const
{
    if (!hasRow(row))
        return NoIdentity;
    const std::size_t hash = std::hash<std::string>()(listOnShow()[static_cast<std::size_t>(row)]);
    return static_cast<RowIdentity>(hash >> 12); // as much of it as a JSON number holds
}

std::size_t GroupTableViewController::numberOfJokes(const std::string& name) const
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.predicate = side().jokesNamed(name);
    std::size_t count = 0;
    loggingFailure([&] { count = viewContext().count(request); });
    return count;
}

QString GroupTableViewController::headerText() const
{
    const QString header = side().groupHeader.toString();
    const QString all = QString::number(m_list.size());
    if (!isSearching())
        return header + all;
    return header + QString::number(m_filteredList.size()) + QStringLiteral(" of ") + all;
}

QString GroupTableViewController::headerTitle() const
{
    return QString::number(listOnShow().size()) + side().groupHeaderTitle.toString();
}

QString GroupTableViewController::searchPlaceholder() const
{
    return side().groupSearchPlaceholder.toString();
}

void GroupTableViewController::selectRow(int row)
{
    if (!hasRow(row))
        return;
    SharedSelection& selection = environment().selection;
    selection.*side().selectedName = textOrEmpty(listOnShow()[static_cast<std::size_t>(row)]);
    selection.CallingScreen = side().groupCallingScreen.toString();
    environment().navigator.performSegue(side().breakdownSegue);
}

void GroupTableViewController::UnwindSegue()
{
    environment().navigator.unwind(UnwindRoute::ToMainMenu);
}

} // namespace giggle
