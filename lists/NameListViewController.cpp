// SPDX-License-Identifier: MIT
#include "lists/NameListViewController.h"

#include "store/AppDelegate.h"
#include "store/NamedRecord.h"
#include "store/TextSearch.h"
#include "ui/DeletionUndo.h"
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
    loggingFailure([this] { m_list = side().records.sorted(viewContext(), order()); });
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
    m_filteredOrder = order();
    if (isSearching())
        std::ranges::copy_if(m_list, std::back_inserter(m_filteredList),
                             [search = TextSearch(searchText()), this](const NamedRecord* record) {
                                 return isFound(search, *record);
                             });
}

bool NameListViewController::isFound(const TextSearch& search, const NamedRecord& record) const
{
    const OptionalText name = side().nameOf(record);
    return name && search.isContainedIn(*name);
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
    NamedRecord& record = recordInRow(row);
    side().records.remove(viewContext(), record);
    environment().appDelegate.saveContext();
    tableView()->removeRow(row, [this, row] {
        NameRecords::List& list = isSearching() ? m_filteredList : m_list;
        list.erase(list.begin() + row);
    });
    offerToTakeBackDeletion(
        environment(), deletedText(record),
        [this, &record] { side().records.restore(viewContext(), record); },
        [this, &record] { putBackOnLists(record); });
}

QString NameListViewController::deletedText(const NamedRecord& record) const
{
    constexpr int MostCharacters = 60;
    const QString name = textOrEmpty(side().nameOf(record)).left(10 * MostCharacters).simplified();
    const QString text = side().deletedText.toString();
    if (name.isEmpty())
        return text + u'.';
    if (name.size() <= MostCharacters)
        return text + QStringLiteral(": ") + name;
    const int kept = MostCharacters - (name.at(MostCharacters - 1).isHighSurrogate() ? 1 : 0);
    return text + QStringLiteral(": ") + name.left(kept) + u'\u2026';
}

void NameListViewController::putBackOnLists(NamedRecord& record)
{
    const auto isBefore = [this](SortOrder order) {
        return [this, order](const NamedRecord* left, const NamedRecord* right) {
            return side().records.isBefore(*left, *right, order);
        };
    };
    putBackInOrder(m_list, record, isBefore(order()), isSearching() ? nullptr : tableView());
    if (isSearching() && isFound(TextSearch(searchText()), record))
        putBackInOrder(m_filteredList, record, isBefore(m_filteredOrder), tableView());
}

} // namespace giggle
