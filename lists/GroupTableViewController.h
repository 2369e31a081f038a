// SPDX-License-Identifier: MIT
#pragma once

#include "lists/GroupTableViewCell.h"
#include "lists/SearchableTableViewController.h"

#include <string>
#include <vector>

namespace giggle {

/// The names that jokes have, of one side, each with the number of its jokes. Choosing one leads to its
/// breakdown.
///
/// The names are looked up whenever the screen appears, but once found a name stays for the life of the
/// screen, with the count 0 when its jokes are gone. The counts are the collection's at the moment in which a
/// row is drawn. While searching, a new direction turns round the rows on show alone.
class GroupTableViewController : public giggle::SearchableTableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString headerTitle READ headerTitle NOTIFY headerTitleChanged)

public:
    [[nodiscard]] QString title() const override { return side().groupTabTitle.toString(); }

    void viewDidLoad() override;
    void viewWillAppear() override;

    [[nodiscard]] int numberOfRows() const override;
    [[nodiscard]] QVariant cellForRow(int row) const override;

    /// A number made of the name.
    [[nodiscard]] RowIdentity identityOfRow(int row) const override;

    [[nodiscard]] QString headerText() const override;

    /// The number of rows in words.
    [[nodiscard]] QString headerTitle() const;

    [[nodiscard]] QString searchPlaceholder() const override;

public slots:
    void selectRow(int row) override;

    /// The way back to the main menu.
    void UnwindSegue();

signals:
    void headerTitleChanged();

protected:
    GroupTableViewController(ScreenEnvironment& environment, const ListSide& side);

    void updateSearchResults() override;
    void sortDirectionChanged() override;

private:
    using NameList = std::vector<std::string>;

    void loadGroups();
    void sort(NameList& names) const;
    [[nodiscard]] std::size_t numberOfJokes(const std::string& name) const;

    [[nodiscard]] const NameList& listOnShow() const { return isSearching() ? m_filteredList : m_list; }

    NameList m_list;
    NameList m_filteredList;
};

} // namespace giggle
