// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/NewMainListTableViewCell.h"
#include "lists/GroupedCheckBoxSelectionDelegate.h"
#include "lists/SearchableTableViewController.h"
#include "ui/ListDisplaySettings.h"

#include <vector>

namespace giggle {

/// The jokes of the name that was chosen on a group screen, by text. A row leads to the editor, which comes
/// back here; its check box makes the joke a favourite at once.
///
/// While a search text is there its result stays on show as it is, whatever is loaded meanwhile, until the
/// text changes.
class BreakdownTableViewController : public giggle::SearchableTableViewController,
                                     public GroupedCheckBoxSelectionDelegate {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(bool DarkMode READ darkMode CONSTANT)

public:
    /// The chosen name in parentheses, once the screen is loaded.
    [[nodiscard]] QString title() const override { return m_title; }

    [[nodiscard]] bool isTargetOf(UnwindRoute route) const override { return route == side().breakdownRoute; }

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void unwound(UnwindRoute route) override;
    void prepareForSegue(SegueId segue) override;

    [[nodiscard]] int numberOfRows() const override;
    [[nodiscard]] QVariant cellForRow(int row) const override;
    [[nodiscard]] RowIdentity identityOfRow(int row) const override;
    [[nodiscard]] QString headerText() const override;

    [[nodiscard]] QString searchPlaceholder() const override;

    /// Whether the system's style was dark when the screen was loaded. The rows are the same in both.
    [[nodiscard]] bool darkMode() const { return m_darkMode; }

    /// Makes the row's joke a favourite, or no longer one, as the shared selection says, and saves. A failed
    /// save is logged, and the change waits for the next one.
    void checkBoxSelectionChanged(bool isChecked, int indexPath) override;

public slots:
    /// Leaves the row's joke in the shared selection, as far as it has a text and a category, and leads on to
    /// the editor.
    void selectRow(int row) override;

    /// Offers the jokes on show as one text; on a device that cannot send text messages it only says so.
    void shareButtonClicked();

    /// Prints the jokes on show.
    void PrintJokes();

    /// Puts the joke's text on the clipboard as it is stored.
    void copyRow(int row);

    /// The row's check box was ticked or cleared.
    void checkBoxClicked(int row, bool isChecked);

protected:
    BreakdownTableViewController(ScreenEnvironment& environment, const ListSide& side);

    void updateSearchResults() override;
    void sortDirectionChanged() override;

private:
    using JokeArray = std::vector<Jokes*>;

    void loadJokes();

    [[nodiscard]] const JokeArray& listOnShow() const
    {
        return isSearching() ? m_filteredJokeList : m_jokeList;
    }

    [[nodiscard]] Jokes& jokeAt(int row) const { return *listOnShow()[static_cast<std::size_t>(row)]; }

    [[nodiscard]] NewMainListTableViewCell cellAt(int row) const;

    QString m_title;
    bool m_darkMode = false;
    ListDisplaySettings m_displaySettings;
    QFont m_font;
    JokeArray m_jokeList;
    JokeArray m_filteredJokeList;
    bool m_isSearchPrepared = false;
};

} // namespace giggle
