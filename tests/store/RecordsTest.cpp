// SPDX-License-Identifier: MIT
#include "store/AppDelegate.h"
#include "tests/support/CollectionFolder.h"

#include <functional>

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace giggle {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

    // Each change, the way back, and an equal value set again.
    const std::vector<std::pair<std::function<void()>, std::function<void()>>> changes = {
        {[&] { joke.setCategory("puns"); }, [&] { joke.setCategory("Puns"); }},
        {[&] { joke.setCategory(std::nullopt); }, [&] { joke.setCategory("Puns"); }},
        {[&] { joke.setRating(""); }, [&] { joke.setRating("Mild"); }},
        {[&] { joke.setId(-7); }, [&] { joke.setId(7); }},
        {[&] { joke.setId(std::nullopt); }, [&] { joke.setId(7); }},
        {[&] { joke.setFavorite(false); }, [&] { joke.setFavorite(true); }},
        {[&] { joke.setFavorite(std::nullopt); }, [&] { joke.setFavorite(true); }},
        {[&] { joke.setJoke(std::string_view("text\0", 5)); }, [&] { joke.setJoke("text"); }},
        {[&] { category.setCategory(std::nullopt); }, [&] { category.setCategory("Puns"); }},
        {[&] { rating.setRating(""); }, [&] { rating.setRating(std::nullopt); }},
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        SCOPED_TRACE(i);
        changes[i].second();
        EXPECT_FALSE(context().hasChanges());
        changes[i].first();
        EXPECT_TRUE(context().hasChanges());
        changes[i].second();
        EXPECT_FALSE(context().hasChanges());
    }
    joke.setJoke("other");
    joke.setId(8);
    joke.setJoke("text");
    EXPECT_TRUE(context().hasChanges()) << "one of two changes was taken back";
}

TEST_F(RecordsTest, NewRecordThatIsDeletedLeavesNothingToSave)
{
    context().deleteObject(insertJoke(context(), {.id = 1}));
    EXPECT_FALSE(context().hasChanges());
    Jokes& joke = insertJoke(context(), {.id = 1});
    context().save();
    EXPECT_EQ(storedRows(m_folder.file()), liveRows(context()));
    context().deleteObject(joke);
    EXPECT_TRUE(context().hasChanges());
    context().save();
    EXPECT_THAT(storedRows(m_folder.file()), IsEmpty());
}

TEST_F(RecordsTest, DeletedRecordsStayReadableAndStill)
{
    Jokes& joke = insertJoke(context(), {.category = "Puns", .id = 3, .favorite = true, .joke = "text"});
    Category& category = insertCategory(context(), "Puns");
    context().save();
    joke.setJoke("last words");
    context().deleteObject(joke);
    context().deleteObject(category);
    context().save();
    for (int i = 0; i < 1000; ++i) // makes the context's memory grow
        insertJoke(context(), {.joke = "another"});
    context().save();

    context().deleteObject(joke);
    joke.setJoke("changed");
    joke.setId(4);
    category.setCategory("changed");
    EXPECT_FALSE(context().hasChanges());
    EXPECT_TRUE(joke.isDeleted());
    EXPECT_EQ(joke.joke(), "last words");
    EXPECT_EQ(joke.category(), "Puns");
    EXPECT_EQ(joke.id(), 3);
    EXPECT_EQ(joke.favorite(), true);
    EXPECT_EQ(category.category(), "Puns");
    EXPECT_EQ(context().highestJokeId(), std::nullopt);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 1000U);
}

TEST_F(RecordsTest, ChangesOfAFailedSaveStayAndGoInWithTheNext)
{
    Jokes& changed = insertJoke(context(), {.id = 1, .joke = "before"});
    Jokes& deleted = insertJoke(context(), {.id = 2});
    context().save();
    const std::vector<std::string> before = storedRows(m_folder.file());
    changed.setJoke("after");
    context().deleteObject(deleted);
    insertJoke(context(), {.id = 3});
    const std::vector<std::string> after = liveRows(context());
    {
        RawDatabase other(m_folder.file());
        other.execute("BEGIN IMMEDIATE");
        try {
            context().save();
            ADD_FAILURE() << "saved while another program was writing";
        } catch (const StoreError& error) {
            EXPECT_EQ(error.extendedCode(), SQLITE_BUSY);
            EXPECT_EQ(error.localizedDescription(),
                      QStringLiteral("The collection could not be saved: database is locked"));
        }
    }
    EXPECT_TRUE(context().hasChanges());
    EXPECT_EQ(storedRows(m_folder.file()), before);
    EXPECT_EQ(liveRows(context()), after);
    EXPECT_EQ(context().highestJokeId(), 3);
    context().save();
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(storedRows(m_folder.file()), after);
}

TEST(AppDelegateTest, MakesTheContainerOnceAndWhenItIsAskedFor)
{
    CollectionFolder folder;
    AppDelegate appDelegate(folder.path());
    EXPECT_TRUE(appDelegate.applicationDidFinishLaunching());
    EXPECT_THAT(folder.contents(), IsEmpty());
    PersistentContainer& container = appDelegate.persistentContainer();
    EXPECT_EQ(&appDelegate.persistentContainer(), &container);
    EXPECT_EQ(container.path(), folder.file());
    insertJoke(container.viewContext(), {.id = 1});
    appDelegate.saveContext();
    EXPECT_EQ(storedRows(folder.file()).size(), 1U);

    RawDatabase other(folder.file());
    other.execute("BEGIN IMMEDIATE");
    appDelegate.saveContext(); // with nothing to save it does not mind
}

TEST(AppDelegateTest, FailedSaveEndsTheProgram)
{
    CollectionFolder folder;
    EXPECT_DEATH(
        {
            AppDelegate appDelegate(folder.path());
            ManagedObjectContext& context = appDelegate.persistentContainer().viewContext();
            RawDatabase(folder.file())
                .execute("CREATE TRIGGER t BEFORE INSERT ON jokes BEGIN "
                         "SELECT RAISE(ABORT, 'no'); END");
            insertJoke(context, {.id = 1});
            appDelegate.saveContext();
        },
        "Fatal error: Unresolved error The collection could not be saved: no, .*file AppDelegate, line 62");
}

} // namespace

} // namespace giggle
