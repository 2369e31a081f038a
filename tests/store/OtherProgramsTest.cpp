// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <QFile>

#include <cstdio>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace giggle {

namespace {

using testing::Contains;

class OtherProgramsTest : public testing::Test {
protected:
    OtherProgramsTest()
    {
        PersistentContainer container = m_folder.open();
        ManagedObjectContext& context = container.viewContext();
        for (std::int16_t id = 1; id <= 3; ++id)
            insertJoke(context, {.category = "Puns", .id = id, .favorite = false, .joke = "text"});
        insertCategory(context, "Puns");
        context.save();
    }

    CollectionFolder m_folder;
};

TEST_F(OtherProgramsTest, ForeignChangesAreNeitherOverwrittenNorPassedOverInSilence)
{
    for (const char* change :
         {"UPDATE jokes SET joke = 'theirs' WHERE id = 1", "UPDATE jokes SET favorite = NULL WHERE id = 3",
          "DELETE FROM jokes WHERE id = 3", "INSERT INTO jokes(joke) VALUES('theirs')",
          "INSERT INTO jokes(oid, joke) VALUES(0, 'theirs')", "UPDATE jokes SET oid = oid - 10",
          "UPDATE category SET category = 'puns'", "DELETE FROM jokes WHERE id = 1", "DELETE FROM jokes"}) {
        SCOPED_TRACE(change);
        PersistentContainer container = m_folder.open();
        ManagedObjectContext& context = container.viewContext();
        Jokes& joke = *context.fetch(Jokes::fetchRequest()).front();
        static_cast<void>(context.fetch(Category::fetchRequest()));
        RawDatabase other(m_folder.file());
        other.execute(change);
        const std::vector<std::string> theirs = storedRows(other);

        joke.setJoke("ours");
        insertJoke(context, {.id = 4});
        for (int attempt = 0; attempt < 2; ++attempt) {
            try {
                context.save();
                ADD_FAILURE() << "saved over another program's change";
            } catch (const StoreError& error) {
                EXPECT_TRUE(
                    error.localizedDescription().startsWith(u"Another program has changed the collection"));
            }
            EXPECT_TRUE(context.hasChanges());
            EXPECT_EQ(storedRows(other), theirs);
        }
        closeContainer(container);
        EXPECT_EQ(liveRows(m_folder.open().viewContext()), theirs);
    }
}

TEST_F(OtherProgramsTest, WritesThatChangeNothingDoNotBlockSaving)
{
    PersistentContainer container = m_folder.open();
    ManagedObjectContext& context = container.viewContext();
    static_cast<void>(liveRows(context));
    RawDatabase other(m_folder.file());
    for (const char* write :
         {"VACUUM", "UPDATE jokes SET joke = joke", "PRAGMA wal_checkpoint(TRUNCATE)",
          "BEGIN IMMEDIATE; DELETE FROM jokes; ROLLBACK",
          "INSERT INTO rating VALUES(9, 'x'); DELETE FROM rating WHERE oid = 9", "ANALYZE"}) {
        other.execute(write);
        context.deleteObject(*context.fetch(Jokes::fetchRequest()).front());
        insertJoke(context, {.joke = "ours"});
        EXPECT_NO_THROW(context.save()) << write;
        EXPECT_EQ(storedRows(other), liveRows(context)) << write;
    }
}

TEST_F(OtherProgramsTest, WriteThatFollowsAFailedSaveOfOursIsNoticed)
{
    PersistentContainer container = m_folder.open();
    ManagedObjectContext& context = container.viewContext();
    context.fetch(Jokes::fetchRequest()).front()->setJoke("ours");
    RawDatabase other(m_folder.file());
    other.execute("BEGIN IMMEDIATE; UPDATE jokes SET joke = 'theirs' WHERE id = 1");
    EXPECT_THROW(context.save(), StoreError);
    other.execute("COMMIT");
    EXPECT_THROW(context.save(), StoreError);
    EXPECT_THAT(storedRows(other), Contains("1|Puns|0|1|theirs|NULL"));
}

class ReadOnlyTest : public OtherProgramsTest {
protected:
    static constexpr uid_t Nobody = 65534;

    /// In a child process without an administrator's rights: whatever is shown is complete, and saving fails
    /// in words. With @p mustOpen a refusal is a failure too.
    [[noreturn]] static void useReadOnly(const CollectionFolder& folder, const std::vector<std::string>& rows,
                                         bool mustOpen)
    {
        // For an administrator no file is read-only.
        if (::geteuid() == 0 && ::setuid(Nobody) != 0)
            ::_exit(2);
        try {
            PersistentContainer container = folder.open();
            ManagedObjectContext& context = container.viewContext();
            EXPECT_EQ(liveRows(context), rows);
            insertJoke(context, {.id = 5});
            {
                const BulkSaving bulk(context);
                EXPECT_THROW(context.save(), StoreError);
            }
            EXPECT_TRUE(context.hasChanges());
            EXPECT_EQ(context.highestJokeId(), 5);
        } catch (const StoreError& error) {
            EXPECT_FALSE(mustOpen) << error.what();
        }
        std::fflush(nullptr);
        ::_exit(HasFailure() ? 1 : 0);
    }

    static void setReadOnly(const CollectionFolder& folder, bool folderToo)
    {
        for (const char* suffix : {"", "-wal", "-shm"})
            ::chmod(QFile::encodeName(folder.file() + QLatin1StringView(suffix)).constData(), 0444);
        ::chmod(QFile::encodeName(folder.path()).constData(), folderToo ? 0555 : 0777);
    }
};

TEST_F(ReadOnlyTest, CollectionOpensForReading)
{
    const std::vector<std::string> rows = storedRows(m_folder.file());
    for (const bool folderToo : {true, false}) {
        SCOPED_TRACE(folderToo);
        setReadOnly(m_folder, folderToo);
        const QByteArray before = readBytes(m_folder.file());
        EXPECT_EXIT(useReadOnly(m_folder, rows, true), testing::ExitedWithCode(0), "");
        EXPECT_EQ(readBytes(m_folder.file()), before);
    }
}

TEST_F(ReadOnlyTest, JokesInTheLogOfACrashNeverVanish)
{
    PersistentContainer container = m_folder.open();
    insertJoke(container.viewContext(), {.id = 4, .joke = "only in the log"});
    container.viewContext().save();
    const std::vector<std::string> rows = liveRows(container.viewContext());
    CollectionFolder crashed;
    m_folder.copyAsAfterACrash(crashed);
    for (const bool folderToo : {true, false}) {
        SCOPED_TRACE(folderToo);
        setReadOnly(crashed, folderToo);
        EXPECT_EXIT(useReadOnly(crashed, rows, !folderToo), testing::ExitedWithCode(0), "");
    }
}

} // namespace

} // namespace giggle
