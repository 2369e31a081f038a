// SPDX-License-Identifier: MIT
#include "lists/NameListViewController.h"

#include "store/AppDelegate.h"
#include "store/TextSearch.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <algorithm>

namespace giggle {

NameListViewController::NameListViewController(ScreenEnvironment& environment, const ListSide& side)
    : Screen(environment), m_side(side),
      m_context(environment.appDelegate.persistentContainer().viewContext()), m_tableView(*this)
{
}

void NameListViewController::viewDidLoad()
{
    m_sortAsc = true;
    load();
    m_tableView.reload();
}

void NameListViewController::unwound(UnwindRoute)
{
    load();
    // With as many rows as before the user finds the list where it was left.
    m_tableView.redraw();
}

void NameListViewController::load()
{
    m_list.clear();
    const SortOrder order = sortAsc() ? SortOrder::Ascending : SortOrder::Descending;
    loggingFailure([&] { m_list = m_side.records.sorted(m_context, order); });
    for (const NamedRecord* record : m_list)
        static_cast<void>(m_side.nameOf(*record)); // ends the program where it must have one
}

void NameListViewController::AddTapped()
{
    environment().navigator.performSegue(m_side.addSegue);
}

void NameListViewController::SortButtonTapped()
{
    m_sortAsc = !sortAsc();
    environment().selection.SortAsc = m_sortAsc;
    emit sortAscChanged();
    load();
    m_tableView.reload();
}

void NameListViewController::setSearchText(const QString& text)
{
    if (text == m_searchText)
        return;
    m_searchText = text;
    emit searchTextChanged();
    updateSearchResults();
}

void NameListViewController::updateSearchResults()
{
    m_filteredList.clear();
    if (isSearching()) {
        const TextSearch search(m_searchText);
        std::ranges::copy_if(m_list, std::back_inserter(m_filteredList), [&](const NamedRecord* record) {
            const OptionalText name = m_side.nameOf(*record);
            return name && search.isContainedIn(*name);
        });
    }
    m_tableView.reload();
}

QString NameListViewController::headerText() const
{
    return m_side.headerPrefix.toString() + QString::number(numberOfRows());
}

QString NameListViewController::nameInRow(int row) const
{
    return hasRow(row) ? textOrEmpty(m_side.nameOf(recordInRow(row))) : QString();
}

void NameListViewController::selectRow(int row)
{
    if (!hasRow(row))
        return;
    environment().selection.*m_side.nameToRename = nameInRow(row);
    environment().navigator.performSegue(m_side.editSegue);
}

void NameListViewController::deleteRow(int row)
{
    if (!hasRow(row))
        return;
    m_side.records.remove(m_context, recordInRow(row));
    environment().appDelegate.saveContext();
    m_tableView.removeRow(row, [this, row] {
        NameRecords::List& list = isSearching() ? m_filteredList : m_list;
        list.erase(list.begin() + row);
    });
}

} // namespace giggle
