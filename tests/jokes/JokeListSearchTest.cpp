// SPDX-License-Identifier: MIT
#include "tests/jokes/JokeListFixture.h"

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;

class JokeListSearchTest : public JokeListFixture {
protected:
    /// By category: 1, 2, 3, 4 have one; 5 has neither category nor rating.
    void load()
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

} // namespace

TEST_F(JokeListSearchTest, LooksAtWhatTheModeIsAbout)
{
    load();

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

TEST_F(JokeListSearchTest, ShowsTheWholeListAfterAFetchUntilTheTextChanges)
{
    load();
    search("egg");
    EXPECT_EQ(header(), "# Jokes = 0 of 5");
    list.setSelectedSegment(JokeMode);
    EXPECT_EQ(list.searchText(), QStringLiteral("egg"));
    EXPECT_EQ(list.numberOfRows(), 5);
    EXPECT_EQ(header(), "# Jokes = 5 of 5");

    search("eggs");
    search("egg");
    EXPECT_THAT(rows(), ElementsAre("1 egg", "4 EGG"));
    list.SortJokesTapped();
    EXPECT_EQ(header(), "# Jokes = 5 of 5");
}

TEST_F(JokeListSearchTest, DeletesFromTheSearchResultAlone)
{
    load();
    search("cat");
    list.deleteRow(0);
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

} // namespace giggle
