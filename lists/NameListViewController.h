// SPDX-License-Identifier: MIT
#pragma once

#include "lists/SearchableTableViewController.h"

namespace giggle {

class TextSearch;

/// The list of one side's names, in either direction, with a search where the side has one. What is done to a
/// name here touches no joke.
///
/// A search text is applied when it changes, and only then: loading the list again (a change of direction,
/// the return from another screen) leaves the rows that a search has found as they are. A name that is
/// deleted while searching is back in the whole list, with its last value, until that is loaded again.
class NameListViewController : public giggle::SearchableTableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString emptyTitle READ emptyTitle CONSTANT)
    Q_PROPERTY(QString emptyHint READ emptyHint CONSTANT)
    Q_PROPERTY(QString addTitle READ addTitle CONSTANT)

public:
    /// @p side must outlive the screen.
    NameListViewController(ScreenEnvironment& environment, const ListSide& side);

    [[nodiscard]] QString title() const override { return side().listTitle.toString(); }

    [[nodiscard]] bool isTargetOf(UnwindRoute route) const override { return route == side().unwindRoute; }

    void viewDidLoad() override;

    /// The search stays for the return from another screen.
    void viewDidDisappear() override {}

    void unwound(UnwindRoute route) override;

    [[nodiscard]] int numberOfRows() const override { return static_cast<int>(listInUse().size()); }

    [[nodiscard]] RowIdentity identityOfRow(int row) const override;

    [[nodiscard]] QString headerText() const override;

    [[nodiscard]] bool hasSearch() const override { return side().hasSearch; }

    [[nodiscard]] QString searchPlaceholder() const override { return side().searchPlaceholder.toString(); }

    /// What a list without any name says.
    [[nodiscard]] QString emptyTitle() const { return side().emptyTitle.toString(); }

    [[nodiscard]] QString emptyHint() const { return side().emptyHint.toString(); }

    /// The title of the screen that adds one.
    [[nodiscard]] QString addTitle() const { return side().addTitle.toString(); }

public slots:
    void AddTapped();

    /// Turns the direction round, which the shared selection learns as well.
    void SortButtonTapped();

    /// The row was chosen: leads on to the rename screen. Here as below, a row that the list does not have
    /// (any more) is none.
    void selectRow(int row) override;

    /// The swipe action: deletes the row's record from the collection, and offers to undo that. A failed save
    /// ends the program, so that nothing is offered then.
    void deleteRow(int row);

protected:
    void updateSearchResults() override;

    void sortDirectionChanged() override { load(); }

    /// The name in that row; empty for a record without one.
    [[nodiscard]] QString nameInRow(int row) const;

private:
    void load();
    void putBackOnLists(NamedRecord& record);
    [[nodiscard]] bool isFound(const TextSearch& search, const NamedRecord& record) const;
    /// What the offer to undo says.
    [[nodiscard]] QString deletedText(const NamedRecord& record) const;

    [[nodiscard]] SortOrder order() const { return sortAsc() ? SortOrder::Ascending : SortOrder::Descending; }

    [[nodiscard]] const NameRecords::List& listInUse() const
    {
        return isSearching() ? m_filteredList : m_list;
    }

    [[nodiscard]] NamedRecord& recordInRow(int row) const
    {
        return *listInUse()[static_cast<std::size_t>(row)];
    }

    NameRecords::List m_list;
    NameRecords::List m_filteredList;
    SortOrder m_filteredOrder = SortOrder::Ascending;
};

} // namespace giggle
