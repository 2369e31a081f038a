// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <gtest/gtest.h>

namespace giggle {

namespace {

/// Five jokes, two of which are alike, and two with nothing set. What fetches, counts and searches make of a
/// restored joke is in FetchTest.
class RestoreTest : public testing::Test {
protected:
    RestoreTest()
    {
        const JokeValues twin{.category = "Puns", .rating = "Mild", .id = 9, .favorite = true, .joke = "b"};
        for (const JokeValues& values :
             {JokeValues{.category = "Puns", .id = 4, .joke = "a"}, twin, JokeValues{}, twin, JokeValues{}})
            jokes.push_back(&insertJoke(context(), values));
        context().save();
    }

    [[nodiscard]] ManagedObjectContext& context() const { return container.viewContext(); }

    void deleteAllButTheFirst()
    {
        for (std::size_t i = 1; i < jokes.size(); ++i)
            context().deleteObject(*jokes[i]);
        context().deleteObject(category);
        context().deleteObject(rating);
    }

    /// In another order than that of insertion.
    void restoreAll()
    {
        context().restore(rating);
        context().restore(category);
        for (const std::size_t number : {3, 1, 4, 2, 0})
            context().restore(*jokes[number]);
    }

    CollectionFolder folder;
    PersistentContainer container = folder.open();
    std::vector<Jokes*> jokes;
    Category& category = insertCategory(context(), std::nullopt);
    Rating& rating = insertRating(context(), "Mild");
};

TEST_F(RestoreTest, SavedDeletionsAreTakenBackWithEveryValueAndPlace)
{
    const std::vector<std::string> before = liveRows(context());
    deleteAllButTheFirst();
    context().save();
    EXPECT_EQ(storedRows(folder.file()).size(), 1U);

    restoreAll();
    EXPECT_TRUE(context().hasChanges());
    EXPECT_EQ(liveRows(context()), before);
    context().save();
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(storedRows(folder.file()), before);

    jokes[1]->setJoke("lives on");
    context().save();
    const std::vector<std::string> after = liveRows(context());
    closeContainer(container);
    container = folder.open();
    EXPECT_EQ(liveRows(context()), after);
    EXPECT_EQ(insertJoke(context(), {}).oid(), 6);
}

TEST_F(RestoreTest, WhatIsStoredAlreadyIsNoChange)
{
    const std::vector<std::string> before = liveRows(context());
    restoreAll(); // nothing is deleted
    EXPECT_FALSE(context().hasChanges());
    deleteAllButTheFirst();
    EXPECT_TRUE(context().hasChanges());
    restoreAll();
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(liveRows(context()), before);

    jokes[0]->setJoke("changed before it is deleted");
    Jokes& fresh = insertJoke(context(), {.joke = "never saved"});
    for (Jokes* joke : {jokes[0], &fresh}) {
        context().deleteObject(*joke);
        context().restore(*joke);
        EXPECT_TRUE(context().hasChanges());
    }
    context().save();
    EXPECT_EQ(storedRows(folder.file()), liveRows(context()));
}

TEST_F(RestoreTest, ARowThatAnotherProgramHasPutInItsPlaceIsNotOverwritten)
{
    context().deleteObject(*jokes[4]);
    context().save();
    RawDatabase other(folder.file());
    other.execute("INSERT INTO jokes(joke) VALUES('theirs')"); // SQLite uses the freed number again
    const std::vector<std::string> theirs = storedRows(other);
    context().restore(*jokes[4]);
    EXPECT_THROW(context().save(), StoreError);
    EXPECT_TRUE(context().hasChanges());
    EXPECT_EQ(storedRows(other), theirs);
    other.execute("DELETE FROM jokes WHERE joke = 'theirs'");
    context().save();
    EXPECT_EQ(storedRows(other), liveRows(context()));
}

} // namespace

} // namespace giggle
