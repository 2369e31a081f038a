// SPDX-License-Identifier: MIT
#pragma once

#include "lists/ListSide.h"
#include "ui/Screen.h"
#include "ui/TableModel.h"

#include <optional>

namespace giggle {

class ManagedObjectContext;

/// The list of one side's names, in either direction, with a search where the side has one. What is done to a
/// name here touches no joke.
///
/// A search text is applied when it changes, and only then: loading the list again (a change of direction,
/// the return from another screen) leaves the rows that a search has found as they are. A name that is
/// deleted while searching is back in the whole list, with its last value, until that is loaded again.
class NameListViewController : public giggle::Screen, public TableDataSource {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::TableModel* tableView READ tableView CONSTANT)
    Q_PROPERTY(bool hasSearch READ hasSearch CONSTANT)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QString searchPlaceholder READ searchPlaceholder CONSTANT)
    Q_PROPERTY(QString emptyTitle READ emptyTitle CONSTANT)
    Q_PROPERTY(QString emptyHint READ emptyHint CONSTANT)
    Q_PROPERTY(bool SortAsc READ sortAsc NOTIFY sortAscChanged)

public:
    /// @p side must outlive the screen.
    NameListViewController(ScreenEnvironment& environment, const ListSide& side);

    [[nodiscard]] QString title() const override { return m_side.listTitle.toString(); }

    [[nodiscard]] bool isTargetOf(UnwindRoute route) const override { return route == m_side.unwindRoute; }

    void viewDidLoad() override;
    void unwound(UnwindRoute route) override;

    [[nodiscard]] int numberOfRows() const override { return static_cast<int>(listInUse().size()); }

    [[nodiscard]] QString headerText() const override;

    [[nodiscard]] TableModel* tableView() { return &m_tableView; }

    [[nodiscard]] bool hasSearch() const { return m_side.hasSearch; }

    [[nodiscard]] const QString& searchText() const { return m_searchText; }

    void setSearchText(const QString& text);

    [[nodiscard]] QString searchPlaceholder() const { return m_side.searchPlaceholder.toString(); }

    /// What a list without any name says.
    [[nodiscard]] QString emptyTitle() const { return m_side.emptyTitle.toString(); }

    [[nodiscard]] QString emptyHint() const { return m_side.emptyHint.toString(); }

    [[nodiscard]] bool sortAsc() const { return m_sortAsc.value_or(false); }

public slots:
    void AddTapped();

    /// Turns the direction round, which the shared selection learns as well.
    void SortButtonTapped();

    /// The row was chosen: leads on to the rename screen. Here as below, a row that the list does not have
    /// (any more) is none.
    void selectRow(int row);

    /// The swipe action: deletes the row's record from the collection. A failed save ends the program.
    void deleteRow(int row);

signals:
    void searchTextChanged();
    void sortAscChanged();

protected:
    /// The name in that row; empty for a record without one.
    [[nodiscard]] QString nameInRow(int row) const;

private:
    void load();
    void updateSearchResults();

    [[nodiscard]] const NameRecords::List& listInUse() const
    {
        return isSearching() ? m_filteredList : m_list;
    }

    [[nodiscard]] bool isSearching() const { return hasSearch() && !m_searchText.isEmpty(); }

    [[nodiscard]] bool hasRow(int row) const { return row >= 0 && row < numberOfRows(); }

    [[nodiscard]] NamedRecord& recordInRow(int row) const
    {
        return *listInUse()[static_cast<std::size_t>(row)];
    }

    const ListSide& m_side;
    ManagedObjectContext& m_context;
    NameRecords::List m_list;
    NameRecords::List m_filteredList;
    std::optional<bool> m_sortAsc;
    QString m_searchText;
    TableModel m_tableView;
};

} // namespace giggle
