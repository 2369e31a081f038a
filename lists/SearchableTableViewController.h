// SPDX-License-Identifier: MIT
#pragma once

#include "lists/ListSide.h"
#include "ui/Screen.h"
#include "ui/TableModel.h"

#include <optional>

namespace giggle {

/// What name lists, groups and breakdowns share: a table that can be turned round, with a live search that
/// lasts until the screen is left, if nothing else is said.
class SearchableTableViewController : public giggle::Screen, public TableDataSource {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::TableModel* tableView READ tableView CONSTANT)
    Q_PROPERTY(bool hasSearch READ hasSearch CONSTANT)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QString searchPlaceholder READ searchPlaceholder CONSTANT)
    Q_PROPERTY(QStringList resultTexts READ resultTexts CONSTANT)
    Q_PROPERTY(bool SortAsc READ sortAsc NOTIFY sortAscChanged)

public:
    void viewDidLoad() override;
    void viewDidDisappear() override;

    [[nodiscard]] TableModel* tableView() { return &m_tableView; }

    [[nodiscard]] const QString& searchText() const { return m_searchText; }

    /// The text as it stands in the search field. A new one narrows the table at once.
    void setSearchText(const QString& text);

    /// Without a search, a search text leaves the rows as they are.
    [[nodiscard]] virtual bool hasSearch() const { return true; }

    [[nodiscard]] virtual QString searchPlaceholder() const = 0;

    /// What is said of a search among names that has found none, one, and more.
    [[nodiscard]] QStringList resultTexts() const;

    [[nodiscard]] bool sortAsc() const { return m_sortAsc.value_or(false); }

public slots:
    /// Turns the direction round. Before the screen is loaded there is none, which ends the program.
    void SortData();

    /// The row was chosen. One that the table does not have (any more) is none.
    virtual void selectRow(int row) = 0;

signals:
    void searchTextChanged();
    void sortAscChanged();

protected:
    SearchableTableViewController(ScreenEnvironment& environment, const ListSide& side);

    [[nodiscard]] const ListSide& side() const { return m_side; }

    /// Puts what the search text leaves on show; the table is reloaded afterwards.
    virtual void updateSearchResults() = 0;

    /// The direction was turned round; the table is reloaded afterwards.
    virtual void sortDirectionChanged() = 0;

    /// Turns the direction round; one that there is not yet counts as descending.
    void turnRound();

    [[nodiscard]] bool isSearching() const { return hasSearch() && !m_searchText.isEmpty(); }

    [[nodiscard]] bool hasRow(int row) const { return row >= 0 && row < numberOfRows(); }

private:
    const ListSide& m_side;
    std::optional<bool> m_sortAsc;
    QString m_searchText;
    TableModel m_tableView;
};

} // namespace giggle
