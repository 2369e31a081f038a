// SPDX-License-Identifier: MIT
#include "store/AppDelegate.h"
#include "tests/support/CollectionFolder.h"

#include <QDir>
#include <QFile>

#include <functional>

#include <gtest/gtest.h>

namespace giggle {

namespace {

void makeCollection(const CollectionFolder& folder)
{
    PersistentContainer container = folder.open();
    for (int i = 0; i < 60; ++i)
        insertJoke(container.viewContext(), {.id = std::int16_t(i), .joke = std::string(150, 'a')});
    container.viewContext().save();
}

struct RefusedFile {
    const char* name;
    const char* reason; ///< a part of the message, as a regular expression
    std::function<void(const CollectionFolder&)> make;
};

/// A collection that SQL statements have changed afterwards.
std::function<void(const CollectionFolder&)> changedBy(const char* sql)
{
    return [=](const CollectionFolder& folder) {
        makeCollection(folder);
        RawDatabase(folder.file()).execute(sql);
    };
}

void changeOnlyInTheLog(const CollectionFolder& folder, const char* sql)
{
    CollectionFolder original;
    makeCollection(original);
    RawDatabase database(original.file());
    database.execute("PRAGMA wal_autocheckpoint = 0");
    database.execute(sql);
    original.copyAsAfterACrash(folder);
}

const std::vector<RefusedFile> refusedFiles = {
    {"folder", "cannot be read", [](const auto& folder) { QDir().mkdir(folder.file()); }},
    {"text", "is not a joke collection",
     [](const auto& folder) { writeBytes(folder.file(), QByteArray(5000, 'x')); }},
    {"foreign database", "belongs to another application",
     [](const auto& folder) {
         RawDatabase(folder.file()).execute("PRAGMA journal_mode = WAL; CREATE TABLE t(a)");
     }},
    {"other application", "belongs to another application", changedBy("PRAGMA application_id = 1")},
    {"newer version", "newer version", changedBy("PRAGMA user_version = 2")},
    {"newer version in the log", "newer version",
     [](const auto& folder) { changeOnlyInTheLog(folder, "PRAGMA user_version = 2"); }},
    {"table gone", "its table rating has no column oid", changedBy("DROP TABLE rating")},
    {"other type", "its table rating has no column rating",
     changedBy("DROP TABLE rating; CREATE TABLE rating(oid INTEGER PRIMARY KEY, rating INTEGER) STRICT")},
    {"log of a file that is gone", "its log .* holds saved jokes",
     [](const auto& folder) {
         changeOnlyInTheLog(folder, "DELETE FROM jokes WHERE id = 3");
         QFile::remove(folder.file());
     }},
    {"damaged beside a log", "damaged",
     [](const auto& folder) {
         changeOnlyInTheLog(folder, "DELETE FROM jokes WHERE id = 3");
         QByteArray bytes = readBytes(folder.file());
         bytes.replace(3 * 4096, 4096, QByteArray(4096, '\x55'));
         writeBytes(folder.file(), bytes);
     }},
};

TEST(RefusalTest, EndsTheProgramInWordsAndTouchesNothing)
{
    for (const RefusedFile& file : refusedFiles) {
        SCOPED_TRACE(file.name);
        CollectionFolder folder;
        file.make(folder);
        const auto before = folder.contents();
        EXPECT_DEATH(static_cast<void>(AppDelegate(folder.path()).persistentContainer()),
                     std::string("Fatal error: Unresolved error .*Giggle_Archives\\.sqlite.*") + file.reason +
                         ".*, \\{.*path = .*\\}: file AppDelegate, line 45");
        EXPECT_TRUE(folder.contents() == before);
    }
    CollectionFolder folder;
    refusedFiles.front().make(folder);
    EXPECT_DEATH(AppDelegate(folder.path()).loadSecondContainer("shell/SomeScreen", 7),
                 "Fatal error: Unresolved error .*: file shell/SomeScreen, line 7");
}

} // namespace

} // namespace giggle
