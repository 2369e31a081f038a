// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/NewMainListTableViewCell.h"
#include "store/Attribute.h"
#include "store/FetchRequest.h"
#include "ui/ListDisplaySettings.h"
#include "ui/Screen.h"
#include "ui/TableModel.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace giggle {

class ManagedObjectContext;

/// The joke list: all jokes or the favourites, in one of four modes that give the order and what a search
/// looks at, in either direction.
///
/// A fetch puts the whole list on show, under a header that counts it as a search result while a search text
/// is there; the text is applied again when it next changes. A joke that is deleted while searching vanishes
/// from the search result alone: it is back, with its last values, when the text is cleared before the next
/// fetch.
class NewMainListTableViewController : public giggle::Screen, public TableDataSource {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::TableModel* JokeTableView READ jokeTableView CONSTANT)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QString searchPlaceholder READ searchPlaceholder NOTIFY selectedSegmentChanged)
    Q_PROPERTY(
        int selectedSegment READ selectedSegment WRITE setSelectedSegment NOTIFY selectedSegmentChanged)
    Q_PROPERTY(QStringList segmentTitles READ segmentTitles CONSTANT)
    Q_PROPERTY(bool DarkMode READ darkMode NOTIFY darkModeChanged)
    Q_PROPERTY(bool SortAsc READ sortAsc NOTIFY sortAscChanged)

public:
    /// What gives the list its order and what a search looks at, by the number of its segment.
    enum Mode { CategoryMode, RatingMode, JokeMode, FavoritesMode };
    Q_ENUM(Mode)

    explicit NewMainListTableViewController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Joke List"); }

    [[nodiscard]] bool isTargetOf(UnwindRoute route) const override { return route == UnwindRoute::ToList; }

    void viewDidLoad() override;
    void viewDidAppear() override;
    void viewDidDisappear() override;
    void unwound(UnwindRoute route) override;

    [[nodiscard]] int numberOfRows() const override;
    [[nodiscard]] QVariant cellForRow(int row) const override;
    [[nodiscard]] QString headerText() const override;

    [[nodiscard]] TableModel* jokeTableView() { return &m_jokeTableView; }

    [[nodiscard]] const QString& searchText() const { return m_searchText; }

    /// The text as it stands in the search field. A new one narrows the list at once.
    void setSearchText(const QString& text);

    [[nodiscard]] QString searchPlaceholder() const;

    /// The mode. Any other number lists every joke in the order of insertion, and a search filters nothing.
    [[nodiscard]] int selectedSegment() const { return m_selectedSegment; }

    void setSelectedSegment(int segment);
    [[nodiscard]] QStringList segmentTitles() const;

    /// Whether the system's style was dark when the screen was loaded.
    [[nodiscard]] bool darkMode() const { return m_darkMode; }

    [[nodiscard]] bool sortAsc() const { return m_sortAsc.value_or(false); }

    Q_INVOKABLE bool canPerform(giggle::Segues::Id segue) const;

public slots:
    void AddTapped();

    /// Turns the direction round. Before the screen is loaded there is none, which ends the program.
    void SortJokesTapped();

    /// Offers the jokes on show as one text; on a device that cannot send text messages it only says so.
    void shareButtonClicked();

    /// The row was chosen: leaves its joke in the shared selection and leads on to the editor. Here as below,
    /// a row that the list does not have (any more) is none.
    void selectRow(int row);

    /// The swipe action: deletes the row's joke from the collection. A failed save ends the program.
    void deleteRow(int row);

    /// The row's check box was ticked or cleared, which the collection does not notice.
    void checkBoxClicked(int row, bool isChecked);

signals:
    void searchTextChanged();
    void selectedSegmentChanged();
    void darkModeChanged();
    void sortAscChanged();

private:
    using JokeArray = std::vector<Jokes*>;

    void fetch();
    [[nodiscard]] FetchRequest<Jokes> fetchRequest() const;
    void segmentedControlAction();
    void updateSearchResults();

    [[nodiscard]] bool isSearching() const { return !m_searchText.isEmpty(); }

    [[nodiscard]] const JokeArray& listOnShow() const
    {
        return isSearching() ? m_filteredJokeList : m_jokeList;
    }

    [[nodiscard]] bool hasRow(int row) const { return row >= 0 && row < numberOfRows(); }

    [[nodiscard]] Jokes& jokeAt(int row) const { return *listOnShow()[static_cast<std::size_t>(row)]; }

    [[nodiscard]] NewMainListTableViewCell cellAt(int row) const;
    [[nodiscard]] QString categoryLabel(const Jokes& joke) const;

    ManagedObjectContext& m_context;
    JokeArray m_jokeList;
    JokeArray m_filteredJokeList;
    bool m_darkMode = false;
    std::optional<bool> m_sortAsc;
    ListDisplaySettings m_displaySettings;
    int m_selectedSegment = CategoryMode;
    QString m_searchText;
    bool m_isSearchPrepared = false;
    TableModel m_jokeTableView;
};

} // namespace giggle
