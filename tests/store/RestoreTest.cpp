// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"
#include "tests/support/CollectionFolder.h"

#include <gtest/gtest.h>

namespace giggle {

namespace {

/// Five jokes, of which the second and the fourth share id, names and text; the third has nothing set.
class RestoreTest : public testing::Test {
protected:
    RestoreTest()
    {
        const JokeValues twin{
            .category = "Puns", .rating = "Mild", .id = 9, .favorite = true, .joke = "\u00c9clair"};
        for (const JokeValues& values :
             {JokeValues{.category = "Puns", .id = 4, .joke = "a"}, twin, JokeValues{}, twin, JokeValues{}})
            jokes.push_back(&insertJoke(context(), values));
        context().save();
    }

    [[nodiscard]] ManagedObjectContext& context() const { return container.viewContext(); }

    /// All that depends on which jokes there are, asked so that caches and indexes answer.
    [[nodiscard]] std::vector<std::string> everySight() const
    {
        std::vector<std::string> sights = liveRows(context());
        const auto add = [&](const FetchRequest<Jokes>& request) {
            std::string seen = std::to_string(context().count(request)) + ":";
            for (const Jokes* joke : context().fetch(request))
                seen += ' ' + std::to_string(joke->oid());
            sights.push_back(seen);
        };
        add({});
        add({{}, {{"category", SortOrder::Descending}, {"joke", SortOrder::Ascending}}});
        add({Predicate<Jokes>("id == %i", 9), {}});
        add({Predicate<Jokes>("category == %@", "Puns"), {}});
        add({Predicate<Jokes>("favorite == %i", 1), {}});
        sights.push_back(std::to_string(context().ratingsOfJokes().size()));
        sights.push_back(std::to_string(context().highestJokeId().value_or(-1)));
        const TextSearch search(QStringLiteral("\u00e9CL"));
        for (const Jokes* joke : search.filter(context().fetch(Jokes::fetchRequest()), Attribute::joke))
            sights.push_back("found " + std::to_string(joke->oid()));
        return sights;
    }

    void deleteAllButTheFirst()
    {
        for (std::size_t i = 1; i < jokes.size(); ++i)
            context().deleteObject(*jokes[i]);
        context().deleteObject(category);
        context().deleteObject(namelessCategory);
        context().deleteObject(rating);
    }

    /// In another order than that of insertion.
    void restoreAll()
    {
        context().restore(rating);
        context().restore(namelessCategory);
        context().restore(category);
        for (const int number : {3, 1, 4, 2, 0})
            context().restore(*jokes[static_cast<std::size_t>(number)]);
    }

    CollectionFolder folder;
    PersistentContainer container = folder.open();
    std::vector<Jokes*> jokes;
    Category& category = insertCategory(context(), "Puns");
    Category& namelessCategory = insertCategory(context(), std::nullopt);
    Rating& rating = insertRating(context(), "Mild");
};

TEST_F(RestoreTest, SavedDeletionsAreTakenBackWithEveryValueAndPlace)
{
    const std::vector<std::string> before = everySight();
    deleteAllButTheFirst();
    context().save();
    EXPECT_EQ(context().highestJokeId(), 4);
    EXPECT_LT(everySight().size(), before.size());

    restoreAll();
    EXPECT_TRUE(context().hasChanges());
    EXPECT_EQ(everySight(), before);
    context().save();
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(storedRows(folder.file()), liveRows(context()));

    jokes[1]->setJoke("lives on");
    EXPECT_TRUE(context().hasChanges());
    context().save();
    const std::vector<std::string> after = liveRows(context());
    closeContainer(container);
    container = folder.open();
    EXPECT_EQ(liveRows(context()), after);
    EXPECT_EQ(insertJoke(context(), {}).oid(), 6);
}

TEST_F(RestoreTest, WhatIsStoredAlreadyIsNoChange)
{
    const std::vector<std::string> before = everySight();
    restoreAll(); // nothing is deleted
    EXPECT_FALSE(context().hasChanges());
    deleteAllButTheFirst();
    EXPECT_TRUE(context().hasChanges());
    restoreAll();
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(everySight(), before);

    jokes[0]->setJoke("changed before it is deleted");
    Jokes& fresh = insertJoke(context(), {.joke = "never saved"});
    for (Jokes* joke : {jokes[0], &fresh}) {
        context().deleteObject(*joke);
        context().restore(*joke);
        EXPECT_TRUE(context().hasChanges());
    }
    jokes[0]->setJoke("a");
    EXPECT_TRUE(context().hasChanges());
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
