// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"
#include "store/FetchRequest.h"
#include "store/Jokes.h"
#include "ui/ListDisplaySettings.h"
#include "ui/Screen.h"
#include "ui/TableModel.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace giggle {

/// What the joke list and the print screen share: all jokes or the favourites, in one of four modes that give
/// the order and what a search looks at, in either direction.
///
/// A fetch puts the whole list on show, also while a search text is there; the text is applied again when it
/// next changes.
class SegmentedJokeListController : public giggle::Screen, public TableDataSource {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QString searchPlaceholder READ searchPlaceholder NOTIFY selectedSegmentChanged)
    Q_PROPERTY(
        int selectedSegment READ selectedSegment WRITE setSelectedSegment NOTIFY selectedSegmentChanged)
    Q_PROPERTY(QStringList segmentTitles READ segmentTitles CONSTANT)
    Q_PROPERTY(bool DarkMode READ darkMode NOTIFY darkModeChanged)
    Q_PROPERTY(bool SortAsc READ sortAsc WRITE setSortAsc NOTIFY sortAscChanged)

public:
    /// What gives the list its order and what a search looks at, by the number of its segment.
    enum Mode { CategoryMode, RatingMode, JokeMode, FavoritesMode };
    Q_ENUM(Mode)

    void viewDidLoad() override;
    void viewDidAppear() override;
    void viewDidDisappear() override;

    [[nodiscard]] int numberOfRows() const override;
    [[nodiscard]] RowIdentity identityOfRow(int row) const override;

    [[nodiscard]] const QString& searchText() const { return m_searchText; }

    /// The text as it stands in the search field. A new one narrows the list at once.
    void setSearchText(const QString& text);

    [[nodiscard]] const QString& searchPlaceholder() const { return m_searchPlaceholder; }

    /// The mode. Any other number lists every joke in the order of insertion, and a search filters nothing.
    [[nodiscard]] int selectedSegment() const { return m_selectedSegment; }

    void setSelectedSegment(int segment);
    [[nodiscard]] QStringList segmentTitles() const;

    /// Whether the system's style was dark when the screen was loaded.
    [[nodiscard]] bool darkMode() const { return m_darkMode; }

    /// Ascending order. There is none before the screen is loaded.
    [[nodiscard]] bool sortAsc() const { return m_sortAsc.value_or(false); }

    void setSortAsc(bool ascending);

signals:
    void searchTextChanged();
    void selectedSegmentChanged();
    void darkModeChanged();
    void sortAscChanged();

protected:
    using JokeArray = std::vector<Jokes*>;
    using SortDescriptors = std::vector<SortDescriptor<Jokes>>;

    /// @p placeholder stands in the search field until the mode is changed. With the number of the mode
    /// behind it @p placeName is the list's in SharedSelection::listPlaces.
    SegmentedJokeListController(ScreenEnvironment& environment, QString placeholder, QString placeName);

    void fetch();

    /// The order of the jokes in the current mode, whose first key is in @p direction.
    [[nodiscard]] virtual SortDescriptors sortDescriptors(SortOrder direction) const = 0;

    /// A fetch has succeeded.
    virtual void jokesFetched() {}

    /// Another list is on show; the table is reloaded afterwards.
    virtual void listOnShowChanged() {}

    [[nodiscard]] bool isSearching() const { return !m_searchText.isEmpty(); }

    [[nodiscard]] bool isSortable() const { return m_sortAsc.has_value(); }

    [[nodiscard]] const JokeArray& jokeList() const { return m_jokeList; }

    [[nodiscard]] const JokeArray& listOnShow() const
    {
        return isSearching() ? m_filteredJokeList : m_jokeList;
    }

    /// Takes a joke off the list on show alone, and its row off the table.
    void removeFromListOnShow(int row);

    /// Takes a joke that was taken off back on the lists that it belongs to, and its row back on the table.
    void putBackOnLists(Jokes& joke);

    [[nodiscard]] bool hasRow(int row) const { return row >= 0 && row < numberOfRows(); }

    [[nodiscard]] Jokes& jokeAt(int row) const { return *listOnShow()[static_cast<std::size_t>(row)]; }

    [[nodiscard]] const ListDisplaySettings& displaySettings() const { return m_displaySettings; }

    [[nodiscard]] TableModel& table() { return m_table; }

private:
    [[nodiscard]] FetchRequest<Jokes> fetchRequest() const;
    void segmentedControlAction();
    void keepPlace();
    void updateSearchResults();
    /// The jokes of @p source that the search text finds, where it narrows the list at all.
    [[nodiscard]] JokeArray found(const JokeArray& source) const;

    JokeArray m_jokeList;
    JokeArray m_filteredJokeList;
    bool m_isNarrowed = false; // to what the search text finds; not after a fetch
    bool m_darkMode = false;
    std::optional<bool> m_sortAsc;
    ListDisplaySettings m_displaySettings;
    int m_selectedSegment = CategoryMode;
    QString m_searchPlaceholder;
    QString m_placeName;
    QString m_searchText;
    bool m_isSearchPrepared = false;
    TableModel m_table;
};

} // namespace giggle
