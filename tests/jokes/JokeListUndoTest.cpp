// SPDX-License-Identifier: MIT
#include "tests/jokes/JokeListFixture.h"

#include <QSignalSpy>

#include <functional>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::HasSubstr;

class JokeListUndoTest : public JokeListFixture {
protected:
    /// "2 ham" has a tie on either side.
    void load()
    {
        for (const char* joke : {"1 egg", "2 ham", "2 ham", "2 ham", "3 eggs"})
            addJoke({.category = "Puns", .favorite = joke[0] == '3', .joke = joke});
        list.viewDidLoad();
    }

    [[nodiscard]] std::vector<std::string> stored() { return storedRows(folder.file()); }
};

} // namespace

TEST_F(JokeListUndoTest, ADeletedJokeComesBackWhereItBelongsWhateverIsOnShow)
{
    struct Case {
        const char* what;
        int row;
        std::function<void()> before;
        std::function<void()> after;
        std::vector<std::string> rows;
        const char* header;
    };

    const auto nothing = [] {};
    const auto search = [this] { list.setSearchText(QStringLiteral("egg")); };
    const auto endSearch = [this] { list.setSearchText({}); };
    const auto sort = [this] { list.SortJokesTapped(); };
    const auto showFavorites = [this] { list.setSelectedSegment(FavoritesMode); };
    const std::vector<std::string> all{"1 egg", "2 ham", "2 ham", "2 ham", "3 eggs"};
    const std::vector<std::string> reversed{"3 eggs", "2 ham", "2 ham", "2 ham", "1 egg"};
    const std::vector<std::string> eggs{"1 egg", "3 eggs"};
    const Case cases[] = {
        {"nothing between", 2, nothing, nothing, all, "# Jokes = 5"},
        {"the last row", 4, nothing, nothing, all, "# Jokes = 5"},
        {"turned round", 0, nothing, sort, reversed, "# Jokes = 5"},
        {"found by a search", 1, search, nothing, eggs, "# Jokes = 2 of 5"},
        {"the search ends", 1, search, endSearch, all, "# Jokes = 5"},
        {"a search that finds it begins", 0, nothing, search, eggs, "# Jokes = 2 of 5"},
        {"a search that does not begins", 2, nothing, search, eggs, "# Jokes = 2 of 5"},
        {"a whole list under a search text", 2, [&] { search(), sort(); }, nothing, reversed,
         "# Jokes = 5 of 5"},
        {"no favourite", 0, nothing, showFavorites, {"3 eggs"}, "# Jokes = 1"},
    };
    load();
    const std::vector<std::string> before = stored();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        list.setSearchText({});
        list.setSelectedSegment(JokeMode);
        list.setSortAsc(true);
        c.before();
        list.deleteRow(c.row);
        EXPECT_EQ(navigator.undoOffer, QStringLiteral("Joke deleted."));
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

TEST_F(JokeListUndoTest, AFailedSaveIsLoggedAndTheJokeWaitsForTheNextOne)
{
    load();
    list.deleteRow(0);
    RawDatabase(folder.file())
        .execute(
            "CREATE TRIGGER refuse BEFORE INSERT ON jokes BEGIN SELECT RAISE(ABORT, 'the disk is full'); "
            "END");
    ::testing::internal::CaptureStderr();
    navigator.undo();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("the disk is full"));
    EXPECT_EQ(rows().size(), 5u);
    EXPECT_EQ(stored().size(), 4u);
    RawDatabase(folder.file()).execute("DROP TRIGGER refuse");
    addJoke({});
    EXPECT_EQ(stored().size(), 6u);
}

} // namespace giggle
