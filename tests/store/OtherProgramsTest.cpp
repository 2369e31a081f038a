// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <QFile>

#include <cstdio>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace giggle {

namespace {

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

/// In a child process without an administrator's rights, for whom no file is read-only: what is shown is
/// complete, and saving fails in words.
[[noreturn]] void useReadOnly(const CollectionFolder& folder, const std::vector<std::string>& rows)
{
    constexpr uid_t Nobody = 65534;
    if (::geteuid() == 0 && ::setuid(Nobody) != 0)
        ::_exit(2);
    PersistentContainer container = folder.open();
    EXPECT_EQ(liveRows(container.viewContext()), rows);
    insertJoke(container.viewContext(), {.id = 5});
    EXPECT_THROW(container.viewContext().save(), StoreError);
    EXPECT_TRUE(container.viewContext().hasChanges());
    std::fflush(nullptr);
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
}

TEST_F(OtherProgramsTest, ReadOnlyCollectionOpensForReading)
{
    const std::vector<std::string> rows = storedRows(m_folder.file());
    const QByteArray before = readBytes(m_folder.file());
    for (const mode_t folderMode : {0555U, 0777U}) {
        SCOPED_TRACE(folderMode);
        ::chmod(QFile::encodeName(m_folder.file()).constData(), 0444);
        ::chmod(QFile::encodeName(m_folder.path()).constData(), folderMode);
        EXPECT_EXIT(useReadOnly(m_folder, rows), testing::ExitedWithCode(0), "");
        EXPECT_EQ(readBytes(m_folder.file()), before);
    }
}

} // namespace

} // namespace giggle
