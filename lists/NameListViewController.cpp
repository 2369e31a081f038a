// SPDX-License-Identifier: MIT
#include "lists/NameListViewController.h"

#include "store/AppDelegate.h"
#include "store/NamedRecord.h"
#include "store/TextSearch.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <algorithm>

namespace giggle {

NameListViewController::NameListViewController(ScreenEnvironment& environment, const ListSide& side)
    : SearchableTableViewController(environment, side)
{
    tableView()->keepPlaceIn(environment.selection.listPlaces[side.listPlace.toString()]);
}

void NameListViewController::viewDidLoad()
{
    SearchableTableViewController::viewDidLoad();
    load();
    tableView()->reload();
}

void NameListViewController::unwound(UnwindRoute)
{
    load();
    // With as many rows as before the user finds the list where it was left.
    tableView()->redraw();
}

void NameListViewController::load()
{
    m_list.clear();
    const SortOrder order = sortAsc() ? SortOrder::Ascending : SortOrder::Descending;
    loggingFailure([&] { m_list = side().records.sorted(context(), order); });
    for (const NamedRecord* record : m_list)
        static_cast<void>(side().nameOf(*record)); // ends the program where it must have one
}

void NameListViewController::AddTapped()
{
    environment().navigator.performSegue(side().addSegue);
}

void NameListViewController::SortButtonTapped()
{
    turnRound();
    environment().selection.SortAsc = sortAsc();
}

void NameListViewController::updateSearchResults()
{
    m_filteredList.clear();
    if (isSearching()) {
        const TextSearch search(searchText());
        std::ranges::copy_if(m_list, std::back_inserter(m_filteredList), [&](const NamedRecord* record) {
            const OptionalText name = side().nameOf(*record);
            return name && search.isContainedIn(*name);
        });
    }
}

QString NameListViewController::headerText() const
{
    return side().headerPrefix.toString() + QString::number(numberOfRows());
}

QString NameListViewController::nameInRow(int row) const
{
    return hasRow(row) ? textOrEmpty(side().nameOf(recordInRow(row))) : QString();
}

RowIdentity NameListViewController::identityOfRow(int row) const
{
    return hasRow(row) ? recordInRow(row).oid() : NoIdentity;
}

void NameListViewController::selectRow(int row)
{
    if (!hasRow(row))
        return;
    environment().selection.*side().nameToRename = nameInRow(row);
    environment().navigator.performSegue(side().editSegue);
}

void NameListViewController::deleteRow(int row)
{
    if (!hasRow(row))
        return;
    side().records.remove(context(), recordInRow(row));
    environment().appDelegate.saveContext();
    tableView()->removeRow(row, [this, row] {
        NameRecords::List& list = isSearching() ? m_filteredList : m_list;
        list.erase(list.begin() + row);
    });
}

} // namespace giggle
