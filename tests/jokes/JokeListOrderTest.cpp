// SPDX-License-Identifier: MIT
#include "tests/jokes/JokeListFixture.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class JokeListOrderTest : public JokeListFixture {
protected:
    void addJokes()
    {
        addJoke({.category = "B", .rating = "Mild", .favorite = true, .joke = "one"});
        addJoke({.category = "A", .rating = "Adult", .favorite = true, .joke = "two"});
        addJoke({.category = "B", .rating = "Adult", .favorite = false, .joke = "four"});
        addJoke({.category = "A", .rating = "Mild", .favorite = true, .joke = "one"});
        addJoke({.joke = "six"});
    }

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
};

} // namespace

TEST_F(JokeListOrderTest, FollowsModeAndDirection)
{
    addJokes();
    list.viewDidLoad();

    struct Case {
        Mode mode;
        bool ascending;
        std::vector<std::string> order;
    };

    const Case cases[] = {
        {CategoryMode, true, {"//six", "A/Mild/one", "A/Adult/two", "B/Adult/four", "B/Mild/one"}},
        {CategoryMode, false, {"B/Adult/four", "B/Mild/one", "A/Mild/one", "A/Adult/two", "//six"}},
        {RatingMode, true, {"//six", "B/Adult/four", "A/Adult/two", "B/Mild/one", "A/Mild/one"}},
        {RatingMode, false, {"B/Mild/one", "A/Mild/one", "B/Adult/four", "A/Adult/two", "//six"}},
        {JokeMode, true, {"B/Adult/four", "A/Mild/one", "B/Mild/one", "//six", "A/Adult/two"}},
        {JokeMode, false, {"A/Adult/two", "//six", "A/Mild/one", "B/Mild/one", "B/Adult/four"}},
        {FavoritesMode, true, {"A/Mild/one", "A/Adult/two", "B/Mild/one"}},
        {FavoritesMode, false, {"B/Mild/one", "A/Adult/two", "A/Mild/one"}},
    };
    for (const Case& c : cases) {
        list.setSelectedSegment(c.mode);
        if (list.sortAsc() != c.ascending)
            list.SortJokesTapped();
        EXPECT_EQ(chosen(), c.order) << "mode " << c.mode << (c.ascending ? " ascending" : " descending");
    }
}

TEST_F(JokeListOrderTest, EveryModeHasItsTitleAndPlaceholder)
{
    list.viewDidLoad();
    EXPECT_EQ(list.segmentTitles(), QStringList({"Category", "Rating", "Joke", "Favorites"}));
    QStringList placeholders;
    for (const int mode : {CategoryMode, RatingMode, JokeMode, FavoritesMode}) {
        list.setSelectedSegment(mode);
        placeholders.append(list.searchPlaceholder());
    }
    EXPECT_EQ(placeholders, QStringList({"Search by Category", "Search by Rating", "Search by Joke",
                                         "Search by Favorite"}));
}

TEST_F(JokeListOrderTest, FetchesAgainOnTheWayBackFromAnEditor)
{
    list.viewDidLoad();
    EXPECT_EQ(header(), "# Jokes = 0");
    EXPECT_THAT(rows(), IsEmpty());
    addJoke({.category = "A", .joke = "new"});
    EXPECT_TRUE(list.isTargetOf(UnwindRoute::ToList));
    list.unwound(UnwindRoute::ToList);
    EXPECT_THAT(rows(), ElementsAre("new"));
}

TEST_F(JokeListOrderTest, PreparesTheSearchOnceAfterTheFirstAppearance)
{
    addJokes();
    list.viewDidLoad();
    EXPECT_EQ(mainQueue.waiting(), 0U);
    list.viewDidAppear();
    EXPECT_EQ(mainQueue.waiting(), 1U);
    mainQueue.advance(std::chrono::seconds(1));
    EXPECT_EQ(mainQueue.waiting(), 0U);
    list.viewDidAppear();
    EXPECT_EQ(mainQueue.waiting(), 0U);
}

TEST_F(JokeListOrderTest, WorkThatIsStillQueuedOutlivesTheScreen)
{
    addJokes();
    auto leaving = std::make_unique<NewMainListTableViewController>(environment);
    leaving->viewDidLoad();
    leaving->viewDidAppear();
    leaving.reset();
    EXPECT_EQ(mainQueue.waiting(), 1u);
    mainQueue.advance(std::chrono::seconds(1));
    EXPECT_EQ(mainQueue.waiting(), 0u);
}

TEST_F(JokeListOrderTest, AFetchThatFailsIsLoggedAndLeavesTheListEmpty)
{
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    ::testing::internal::CaptureStderr();
    list.viewDidLoad();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), ::testing::HasSubstr("jokes"));
    EXPECT_EQ(header(), "# Jokes = 0");
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(JokeListOrderTest, SortingBeforeLoadingEndsTheProgram)
{
    EXPECT_DEATH(list.SortJokesTapped(), "sorted before it was loaded");
}

} // namespace giggle
