// SPDX-License-Identifier: MIT
#include "jokes/JokeComposition.h"
#include "tests/jokes/JokeListFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;

class JokeListTest : public JokeListFixture {
protected:
    /// "<category>/<rating>/<joke>" of each row, chosen as the user would.
    std::vector<std::string> chosen()
    {
        std::vector<std::string> texts;
        for (int row = 0; row < list.numberOfRows(); ++row) {
            list.selectRow(row);
            texts.push_back((selection.SelectedCategory + u'/' + selection.SelectedRating + u'/' +
                             selection.SelectedJokeText)
                                .toStdString());
        }
        return texts;
    }

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
};

TEST_F(JokeListTest, OrderFollowsModeAndDirection)
{
    addJoke({.category = "B", .rating = "Mild", .favorite = true, .joke = "one"});
    addJoke({.category = "A", .rating = "Adult", .favorite = true, .joke = "two"});
    addJoke({.category = "B", .rating = "Adult", .favorite = false, .joke = "four"});
    addJoke({.category = "A", .rating = "Mild", .favorite = true, .joke = "one"});
    addJoke({.joke = "six"});
    EXPECT_DEATH(list.SortJokesTapped(), "sorted before it was loaded");
    list.viewDidLoad();

    struct Case {
        Mode mode;
        bool ascending;
        const char* placeholder;
        std::vector<std::string> order;
    };

    const Case cases[] = {
        {CategoryMode,
         true,
         "Category",
         {"//six", "A/Mild/one", "A/Adult/two", "B/Adult/four", "B/Mild/one"}},
        {CategoryMode,
         false,
         "Category",
         {"B/Adult/four", "B/Mild/one", "A/Mild/one", "A/Adult/two", "//six"}},
        {RatingMode, true, "Rating", {"//six", "B/Adult/four", "A/Adult/two", "B/Mild/one", "A/Mild/one"}},
        {RatingMode, false, "Rating", {"B/Mild/one", "A/Mild/one", "B/Adult/four", "A/Adult/two", "//six"}},
        {JokeMode, true, "Joke", {"B/Adult/four", "A/Mild/one", "B/Mild/one", "//six", "A/Adult/two"}},
        {JokeMode, false, "Joke", {"A/Adult/two", "//six", "A/Mild/one", "B/Mild/one", "B/Adult/four"}},
        {FavoritesMode, true, "Favorite", {"A/Mild/one", "A/Adult/two", "B/Mild/one"}},
        {FavoritesMode, false, "Favorite", {"B/Mild/one", "A/Adult/two", "A/Mild/one"}},
    };
    for (const Case& c : cases) {
        list.setSelectedSegment(c.mode);
        if (list.sortAsc() != c.ascending)
            list.SortJokesTapped();
        EXPECT_EQ(chosen(), c.order) << "mode " << c.mode << (c.ascending ? " ascending" : " descending");
        EXPECT_EQ(list.searchPlaceholder(), QStringLiteral("Search by ") + QLatin1StringView(c.placeholder));
    }
}

TEST_F(JokeListTest, SearchLooksAtWhatTheModeIsAbout)
{
    loadJokesToSearch();

    struct Case {
        Mode mode;
        const char* text;
        std::vector<std::string> found;
        const char* header;
    };

    const Case cases[] = {
        {CategoryMode, "CAT", {"1 egg", "3 ham"}, "# Jokes = 2 of 5"},
        {CategoryMode, "egg", {}, "# Jokes = 0 of 5"},
        {RatingMode, "mild", {"1 egg", "2 G"}, "# Jokes = 2 of 5"},
        {RatingMode, "mild+", {"2 G"}, "# Jokes = 1 of 5"},
        {JokeMode, "egg", {"1 egg", "4 EGG"}, "# Jokes = 2 of 5"},
        {JokeMode, "\xC3\xA9g\xC3\xBC", {"2 G"}, "# Jokes = 1 of 5"},
        {JokeMode, " ", {"1 egg", "2 G", "3 ham", "4 EGG", "5 cat"}, "# Jokes = 5 of 5"},
        {FavoritesMode, "zebra", {"1 egg", "2 G"}, "# Jokes = 2 of 2"},
    };
    for (const Case& c : cases) {
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
    EXPECT_EQ(list.searchText(), QStringLiteral("egg"));
    EXPECT_EQ(header(), "# Jokes = 5 of 5");
    search("eggs");
    search("egg");
    EXPECT_THAT(rows(), ElementsAre("1 egg", "4 EGG"));
    list.SortJokesTapped();
    EXPECT_EQ(header(), "# Jokes = 5 of 5");
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

TEST_F(JokeListTest, AFetchThatFailsIsLoggedAndLeavesTheListEmpty)
{
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    ::testing::internal::CaptureStderr();
    list.viewDidLoad();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), ::testing::HasSubstr("jokes"));
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
    EXPECT_EQ(mainQueue.waiting(), 0u);
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
        EXPECT_TRUE(system.shareSheet.presented.back().excluded.empty());
        list.PrintJokes();
        EXPECT_EQ(system.printPanel.presented.back().text.toStdString(), text);
    }
    EXPECT_TRUE(navigator.alerts.empty());
    system.messageCapability.canSend = false;
    list.shareButtonClicked();
    mainQueue.advance(std::chrono::milliseconds(0));
    ASSERT_EQ(navigator.alerts.size(), 1U);
    EXPECT_EQ(navigator.alerts.front().title.toStdString(), "Can't Send Text Message");
    EXPECT_EQ(system.shareSheet.presented.size(), 3U);
}

TEST_F(JokeListTest, TheCompositionIsLaidOutInTheMiddleWithJokesInLargeBoldType)
{
    const AttributedText composition = composeJokes({&addJoke({.joke = "a\nb"})}).attributedText();
    ASSERT_EQ(composition.runs().size(), 3U);
    const TextAttributes& joke = composition.runs().front().attributes;
    ASSERT_TRUE(joke.font && joke.foregroundColor);
    EXPECT_TRUE(joke.font->bold());
    EXPECT_EQ(joke.font->pixelSize(), 18);
    EXPECT_EQ(joke.foregroundColor, QColor(Qt::black));
    EXPECT_EQ(joke.alignment, Qt::AlignHCenter);
}

TEST_F(JokeListTest, CopiesTheTextAsItIsStored)
{
    const std::string text = "It's\n\u2028^\"\u00a0 \\";
    addJoke({.category = "Puns", .joke = text});
    addJoke({.category = "Quips"});
    list.viewDidLoad();
    list.copyRow(0);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
    EXPECT_EQ(navigator.confirmed, QStringLiteral("Copied."));
    list.copyRow(1);
    list.copyRow(2);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
    EXPECT_EQ(navigator.confirmed, QStringLiteral("There is no text to copy."));
}

} // namespace

} // namespace giggle
