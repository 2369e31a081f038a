// SPDX-License-Identifier: MIT
#include "jokes/NewMainListTableViewController.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

#include <functional>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Mode = NewMainListTableViewController::Mode;
using enum NewMainListTableViewController::Mode;

/// A joke list over the jokes that a test adds before it loads the screen.
class JokeListTest : public ScreenFixture {
protected:
    [[nodiscard]] NewMainListTableViewCell cell(int row) const
    {
        return list.cellForRow(row).value<NewMainListTableViewCell>();
    }

    /// The jokes' texts in the order of their rows, without the line feeds. Rows without content are "".
    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < list.jokeTableView()->rowCount(); ++row)
            texts.push_back(cell(row).JokeLabel.trimmed().toStdString());
        return texts;
    }

    [[nodiscard]] std::string header() const { return list.jokeTableView()->headerText().toStdString(); }

    [[nodiscard]] std::vector<std::string> stored() const { return storedRows(folder.file()); }

    /// By category: 1, 2, 3, 4 have one; 5 has neither category nor rating.
    void loadJokesToSearch()
    {
        addJoke({.category = "Concatenate", .rating = "Mild", .favorite = true, .joke = "1 egg"});
        addJoke({.category = "Dog", .rating = "Mild+", .favorite = true, .joke = "2 \xC3\x89G\xC3\x9C"});
        addJoke({.category = "Tomcat", .rating = "Adult", .joke = "3 ham"});
        addJoke({.category = "Zebra", .rating = "Adult", .joke = "4 EGG"});
        addJoke({.joke = "5 cat"});
        list.viewDidLoad();
    }

    void search(const char* text) { list.setSearchText(QString::fromUtf8(text)); }

    mutable NewMainListTableViewController list{environment};
    QAbstractItemModelTester tester{list.jokeTableView(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(JokeListTest, OrderFollowsModeAndDirection)
{
    addJoke({.category = "B", .rating = "M", .favorite = true, .joke = "a"});
    addJoke({.category = "A", .rating = "L", .favorite = true, .joke = "z"});
    addJoke({.category = "B", .rating = "L", .favorite = false, .joke = "A"});
    addJoke({.category = "A", .rating = "M", .favorite = true, .joke = "a"});
    addJoke({.joke = "s"});
    EXPECT_DEATH(list.SortJokesTapped(), "sorted before it was loaded");
    list.viewDidLoad();

    const struct {
        Mode mode;
        bool ascending;
        const char* order; ///< category, rating and joke of each row as it is chosen
    } cases[] = {
        {CategoryMode, true, "s AMa ALz BLA BMa "}, {CategoryMode, false, "BLA BMa AMa ALz s "},
        {RatingMode, true, "s BLA ALz BMa AMa "},   {RatingMode, false, "BMa AMa BLA ALz s "},
        {JokeMode, true, "BLA AMa BMa s ALz "},     {JokeMode, false, "ALz s AMa BMa BLA "},
        {FavoritesMode, true, "AMa ALz BMa "},      {FavoritesMode, false, "BMa ALz AMa "},
    };

    for (const auto& [mode, ascending, order] : cases) {
        list.setSelectedSegment(mode);
        if (list.sortAsc() != ascending)
            list.SortJokesTapped();
        QString chosen;
        for (int row = 0; row < list.numberOfRows(); ++row) {
            list.selectRow(row);
            chosen +=
                selection.SelectedCategory + selection.SelectedRating + selection.SelectedJokeText + u' ';
        }
        EXPECT_EQ(chosen.toStdString(), order)
            << "mode " << mode << (ascending ? " ascending" : " descending");
    }
}

TEST_F(JokeListTest, SearchLooksAtWhatTheModeIsAbout)
{
    loadJokesToSearch();

    const struct {
        Mode mode;
        const char* text;
        std::vector<std::string> found;
        const char* header;
    } cases[] = {
        {CategoryMode, "CAT", {"1 egg", "3 ham"}, "# Jokes = 2 of 5"},
        {CategoryMode, "egg", {}, "# Jokes = 0 of 5"},
        {RatingMode, "mild", {"1 egg", "2 G"}, "# Jokes = 2 of 5"},
        {RatingMode, "mild+", {"2 G"}, "# Jokes = 1 of 5"},
        {JokeMode, "egg", {"1 egg", "4 EGG"}, "# Jokes = 2 of 5"},
        {JokeMode, "\xC3\xA9g\xC3\xBC", {"2 G"}, "# Jokes = 1 of 5"},
        {JokeMode, " ", {"1 egg", "2 G", "3 ham", "4 EGG", "5 cat"}, "# Jokes = 5 of 5"},
        {FavoritesMode, "zebra", {"1 egg", "2 G"}, "# Jokes = 2 of 2"},
    };

    for (const auto& c : cases) {
        search("");
        list.setSelectedSegment(c.mode);
        search(c.text);
        EXPECT_EQ(rows(), c.found) << c.text;
        EXPECT_EQ(header(), c.header) << c.text;
    }
}

TEST_F(JokeListTest, AFetchShowsTheWholeListUntilTheSearchTextChanges)
{
    loadJokesToSearch();
    search("egg");
    EXPECT_EQ(header(), "# Jokes = 0 of 5");
    list.setSelectedSegment(JokeMode);
    EXPECT_EQ(list.searchText(), u"egg"_s);
    EXPECT_EQ(header(), "# Jokes = 5 of 5");
    search("eggs");
    search("egg");
    EXPECT_THAT(rows(), ElementsAre("1 egg", "4 EGG"));
    list.SortJokesTapped();
    EXPECT_EQ(header(), "# Jokes = 5 of 5");
}

TEST_F(JokeListTest, WhatARowShowsDependsOnTheModeAndOnWhetherItWasSearched)
{
    const JokeValues bare{.favorite = true, .joke = "bare"};

    const struct {
        JokeValues joke;
        Mode mode;
        const char* searched;
        const char* name; ///< of the row: all that it shows
    } cases[] = {
        {{.category = "It's \u00E9", .rating = "\"M\"", .joke = "Don't\nstop"},
         CategoryMode,
         "",
         "Dont\nstop, Category: It's \u00E9, Rating: \"M\""},
        {bare, CategoryMode, "", "bare, Category:, Rating: N/A"},
        {bare, RatingMode, "", "bare, Category: N/A, Rating: N/A"},
        {bare, JokeMode, "bare", "bare, Category:, Rating: N/A"},
        {{.category = "A"}, CategoryMode, "", "empty"},
        {{.category = "A", .joke = ""}, CategoryMode, "", "empty"},
        {{.category = "A", .joke = "'"}, CategoryMode, "", "Category: A, Rating: N/A"},
        {{.category = "A"}, CategoryMode, "a", "Category: A, Rating: N/A"},
        {{.category = "A"}, RatingMode, "", "Category: A, Rating: N/A"},
    };

    for (const auto& [values, mode, searched, name] : cases) {
        SCOPED_TRACE(testing::Message() << mode << ' ' << searched << ' ' << name);
        Jokes& joke = addJoke(values);
        list.viewDidLoad();
        list.setSelectedSegment(mode);
        search(searched);
        ASSERT_EQ(list.numberOfRows(), 1);
        EXPECT_EQ(cell(0).hasContent ? cell(0).accessibleName().toStdString() : "empty", name);
        EXPECT_FALSE(cell(1).hasContent) << "not there";
        search("");
        context().deleteObject(joke);
    }
}

TEST_F(JokeListTest, SettingsThatNobodyCanDrawWithDoNotHideTheText)
{
    userDefaults.setReal(PreferenceKeys::ListFontSize, 0.25);
    userDefaults.setText(PreferenceKeys::ListFontColor, u"Blue"_s);
    loadJokesToSearch();
    EXPECT_EQ(cell(0).fontPixelSize, 1.0);
    EXPECT_FALSE(cell(0).hasTextColor);
}

TEST_F(JokeListTest, DeletesFromTheSearchResultAlone)
{
    loadJokesToSearch();
    search("cat");
    for (const int gone : {-1, 2}) {
        list.deleteRow(gone);
        list.selectRow(gone);
        list.checkBoxClicked(gone, true);
    }
    EXPECT_TRUE(navigator.performed.empty());
    const QSignalSpy resets(list.jokeTableView(), &TableModel::modelReset);
    list.deleteRow(0);
    EXPECT_EQ(resets.count(), 0) << "the list would lose its place";
    EXPECT_THAT(rows(), ElementsAre("3 ham"));
    EXPECT_EQ(header(), "# Jokes = 1 of 5");
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 4U);
    search("");
    EXPECT_EQ(rows().size(), 5U) << "the deleted joke is on show until the next fetch";
    list.deleteRow(1);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 4U) << "and is not deleted again";
    list.SortJokesTapped();
    EXPECT_EQ(rows().size(), 4U);
}

TEST_F(JokeListTest, ADeletionThatCannotBeSavedEndsTheProgram)
{
    addJoke({.category = "A", .joke = "a"});
    list.viewDidLoad();
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    EXPECT_DEATH(list.deleteRow(0), "Unresolved error .*AppDelegate, line 62");
}

TEST_F(JokeListTest, ADeletedJokeComesBackWhereItBelongsWhateverIsOnShow)
{
    const auto nothing = [] {};
    const auto searchEgg = [this] { search("egg"); };
    const auto endSearch = [this] { search(""); };
    const auto sort = [this] { list.SortJokesTapped(); };
    const auto showFavorites = [this] { list.setSelectedSegment(FavoritesMode); };
    const std::vector<std::string> all{"1 egg", "2 ham", "2 ham", "2 ham", "3 eggs"};
    const std::vector<std::string> reversed{"3 eggs", "2 ham", "2 ham", "2 ham", "1 egg"};
    const std::vector<std::string> eggs{"1 egg", "3 eggs"};

    const struct {
        const char* what;
        int row;
        std::function<void()> before;
        std::function<void()> after;
        std::vector<std::string> rows;
        const char* header;
    } cases[] = {
        {"nothing between", 2, nothing, nothing, all, "# Jokes = 5"},
        {"turned round", 0, nothing, sort, reversed, "# Jokes = 5"},
        {"found by a search", 1, searchEgg, nothing, eggs, "# Jokes = 2 of 5"},
        {"the search ends", 1, searchEgg, endSearch, all, "# Jokes = 5"},
        {"a search that finds it begins", 0, nothing, searchEgg, eggs, "# Jokes = 2 of 5"},
        {"a search that does not begins", 2, nothing, searchEgg, eggs, "# Jokes = 2 of 5"},
        {"a whole list under a search text", 2, [&] { searchEgg(), sort(); }, nothing, reversed,
         "# Jokes = 5 of 5"},
        {"no favourite", 0, nothing, showFavorites, {"3 eggs"}, "# Jokes = 1"},
    };

    for (const std::string& joke : all)
        addJoke({.category = "Puns", .favorite = joke == "3 eggs", .joke = joke});
    list.viewDidLoad();
    const std::vector<std::string> before = stored();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        search("");
        list.setSelectedSegment(JokeMode);
        list.setSortAsc(true);
        c.before();
        list.deleteRow(c.row);
        EXPECT_EQ(navigator.undoOffer, u"Joke deleted."_s);
        EXPECT_EQ(stored().size(), before.size() - 1);
        c.after();
        QSignalSpy resets(list.jokeTableView(), &TableModel::modelReset);
        navigator.undo();
        EXPECT_EQ(rows(), c.rows);
        EXPECT_EQ(header(), c.header);
        EXPECT_EQ(resets.count(), 0);
        EXPECT_EQ(stored(), before);
        EXPECT_FALSE(context().hasChanges());
    }
}

TEST_F(JokeListTest, AnUndoWhoseSaveFailsIsLoggedAndTheJokeWaitsForTheNextOne)
{
    loadJokesToSearch();
    list.deleteRow(0);
    RawDatabase other(folder.file());
    other.execute("CREATE TRIGGER refuse BEFORE INSERT ON jokes BEGIN SELECT RAISE(ABORT, 'no room'); END");
    ::testing::internal::CaptureStderr();
    navigator.undo();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("no room"));
    EXPECT_EQ(rows().size(), 5u);
    EXPECT_EQ(stored().size(), 4u);
    other.execute("DROP TRIGGER refuse");
    addJoke({});
    EXPECT_EQ(stored().size(), 6u);
}

TEST_F(JokeListTest, AFetchThatFailsIsLoggedAndLeavesTheListEmpty)
{
    static_cast<void>(context()); // makes the collection
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    ::testing::internal::CaptureStderr();
    list.viewDidLoad();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("jokes"));
    EXPECT_EQ(header(), "# Jokes = 0");
}

TEST_F(JokeListTest, WorkThatIsStillQueuedOutlivesTheScreen)
{
    addJoke({.joke = "to be prepared for the search"});
    auto leaving = std::make_unique<NewMainListTableViewController>(environment);
    leaving->viewDidLoad();
    leaving->viewDidAppear();
    leaving.reset();
    EXPECT_EQ(mainQueue.waiting(), 1u);
    mainQueue.advance(std::chrono::seconds(1));
}

TEST_F(JokeListTest, SharesAndPrintsTheJokesOnShowAsOneText)
{
    const std::string dashes = "\n" + std::string(34, '-') + "\n\n\n";
    addJoke({.category = "b", .joke = "Don't \u00e9\n^"});
    addJoke({.category = "a"});
    addJoke({.category = "cat", .joke = "\ufeffmine"});
    list.viewDidLoad();
    for (const auto& [searched, text] :
         {std::pair("", dashes + "Don't \u00e9\n^" + dashes + "\ufeffmine" + dashes),
          std::pair("CAT", "\ufeffmine" + dashes), std::pair("zebra", std::string())}) {
        search(searched);
        list.shareButtonClicked();
        EXPECT_EQ(std::get<SharedText>(system.shareSheet.presented.back().items.at(0)).text.toStdString(),
                  text);
        list.PrintJokes();
        EXPECT_EQ(system.printPanel.presented.back().text.toStdString(), text);
    }
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(JokeListTest, CopiesTheTextAsItIsStored)
{
    const std::string text = "It's\n\u2028^\"\u00a0 \\";
    addJoke({.category = "Puns", .joke = text});
    addJoke({.category = "Quips"});
    list.viewDidLoad();
    for (const int row : {0, 1, 2}) {
        list.copyRow(row);
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
        EXPECT_EQ(navigator.confirmed, row == 0 ? u"Copied."_s : u"There is no text to copy."_s);
    }
}

} // namespace

} // namespace giggle
