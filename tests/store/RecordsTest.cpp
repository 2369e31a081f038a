// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <functional>

#include <gtest/gtest.h>

namespace giggle {

namespace {

class RecordsTest : public testing::Test {
protected:
    [[nodiscard]] ManagedObjectContext& context() const { return m_container.viewContext(); }

    CollectionFolder m_folder;
    PersistentContainer m_container = m_folder.open();
};

TEST_F(RecordsTest, ChangesThatAreTakenBackAreNone)
{
    Jokes& joke = insertJoke(
        context(), {.category = "Puns", .rating = "Mild", .id = 7, .favorite = true, .joke = "text"});
    Category& category = insertCategory(context(), "Puns");
    Rating& rating = insertRating(context(), std::nullopt);
    context().save();

    // Each change and the way back.
    const std::pair<std::function<void()>, std::function<void()>> changes[] = {
        {[&] { joke.setCategory(std::nullopt); }, [&] { joke.setCategory("Puns"); }},
        {[&] { joke.setRating(""); }, [&] { joke.setRating("Mild"); }},
        {[&] { joke.setId(std::nullopt); }, [&] { joke.setId(7); }},
        {[&] { joke.setFavorite(std::nullopt); }, [&] { joke.setFavorite(true); }},
        {[&] { joke.setJoke(std::string_view("text\0", 5)); }, [&] { joke.setJoke("text"); }},
        {[&] { category.setCategory(std::nullopt); }, [&] { category.setCategory("Puns"); }},
        {[&] { rating.setRating(""); }, [&] { rating.setRating(std::nullopt); }},
    };
    for (const auto& [change, takeBack] : changes) {
        SCOPED_TRACE(&change - &changes[0].first);
        takeBack();
        EXPECT_FALSE(context().hasChanges());
        change();
        EXPECT_TRUE(context().hasChanges());
        takeBack();
        EXPECT_FALSE(context().hasChanges());
    }
    joke.setJoke("other");
    joke.setId(8);
    joke.setJoke("text");
    EXPECT_TRUE(context().hasChanges()) << "one of two changes was taken back";
}

TEST_F(RecordsTest, DeletedRecordsStayReadableAndStill)
{
    Jokes& joke = insertJoke(context(), {.category = "Puns", .id = 3, .favorite = true, .joke = "text"});
    context().save();
    joke.setJoke("last words");
    context().deleteObject(joke);
    context().save();
    for (int i = 0; i < 1000; ++i) // makes the context's memory grow
        insertJoke(context(), {.joke = "another"});
    context().save();

    context().deleteObject(joke);
    joke.setJoke("changed");
    EXPECT_FALSE(context().hasChanges());
    EXPECT_TRUE(joke.isDeleted());
    EXPECT_EQ(joke.joke(), "last words");
    EXPECT_EQ(joke.category(), "Puns");
    EXPECT_EQ(joke.id(), 3);
    EXPECT_EQ(context().highestJokeId(), std::nullopt);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 1000U);
}

} // namespace

} // namespace giggle
