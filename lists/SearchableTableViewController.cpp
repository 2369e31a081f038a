// SPDX-License-Identifier: MIT
#include "lists/SearchableTableViewController.h"

#include "store/FatalError.h"

namespace giggle {

SearchableTableViewController::SearchableTableViewController(ScreenEnvironment& environment,
                                                             const ListSide& side)
    : Screen(environment), m_side(side), m_tableView(*this)
{
}

void SearchableTableViewController::viewDidLoad()
{
    m_sortAsc = true;
    emit sortAscChanged();
}

void SearchableTableViewController::viewDidDisappear()
{
    setSearchText({});
}

void SearchableTableViewController::setSearchText(const QString& text)
{
    if (text == m_searchText)
        return;
    m_searchText = text;
    emit searchTextChanged();
    updateSearchResults();
    m_tableView.reload();
}

QStringList SearchableTableViewController::resultTexts() const
{
    QStringList texts;
    for (const QStringView text : side().resultTexts)
        texts << text.toString();
    return texts;
}

void SearchableTableViewController::SortData()
{
    if (!m_sortAsc)
        fatalError(QStringLiteral("A list was sorted before it was loaded."), __FILE__, __LINE__);
    turnRound();
}

void SearchableTableViewController::turnRound()
{
    m_sortAsc = !sortAsc();
    emit sortAscChanged();
    sortDirectionChanged();
    m_tableView.reload();
}

} // namespace giggle
