// SPDX-License-Identifier: MIT
#include "store/AppDelegate.h"
#include "tests/support/CollectionFolder.h"

#include <QFile>

#include <numeric>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;

/// The tables of version 1 and its header, word for word.
constexpr const char* PinnedSchema =
    "CREATE TABLE jokes(oid INTEGER PRIMARY KEY, category TEXT, favorite INTEGER CHECK (favorite IN (0, 1)), "
    "id INTEGER CHECK (id BETWEEN -32768 AND 32767), joke TEXT, rating TEXT) STRICT;"
    "CREATE TABLE category(oid INTEGER PRIMARY KEY, category TEXT) STRICT;"
    "CREATE TABLE rating(oid INTEGER PRIMARY KEY, rating TEXT) STRICT;"
    "PRAGMA application_id = 0x47696741; PRAGMA user_version = 1;";

TEST(PersistenceTest, WhatIsSavedIsThereAgain)
{
    CollectionFolder folder;
    std::string everyByteOfAscii(128, '\0');
    std::iota(everyByteOfAscii.begin(), everyByteOfAscii.end(), '\0');
    const std::string large = std::string(1'000'000, 'x') + "\xF0\x9F\x98\x80";
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    insertJoke(context, {.category = everyByteOfAscii, .rating = "", .joke = std::string_view("\0", 1)});
    insertJoke(context, {.id = -32768, .favorite = false, .joke = large});
    insertJoke(context, {.category = "", .id = 32767, .favorite = true, .joke = ""});
    Jokes& last = insertJoke(context, {});
    insertCategory(context, std::nullopt);
    insertCategory(context, std::string_view("a\0b", 3));
    insertRating(context, "");
    context.save();
    const std::vector<std::string> rows = liveRows(context);
    EXPECT_EQ(storedRows(folder.file()), rows);
    context.deleteObject(last);
    insertRating(context, "not saved");
    closeContainer(container);
    container = folder.open();
    EXPECT_EQ(liveRows(container.viewContext()), rows);
    EXPECT_FALSE(container.viewContext().hasChanges());
    closeContainer(container);
    EXPECT_THAT(folder.contents(), ElementsAre(testing::Key(QStringLiteral("Giggle_Archives.sqlite"))));
}

TEST(PersistenceTest, FileHasThePinnedForm)
{
    CollectionFolder folder;
    static_cast<void>(folder.open());
    CollectionFolder pinnedFolder;
    RawDatabase pinned(pinnedFolder.file());
    pinned.execute(PinnedSchema);
    RawDatabase made(folder.file());
    for (const char* question : {"SELECT type, name, tbl_name, sql FROM sqlite_schema", "PRAGMA user_version",
                                 "PRAGMA application_id", "PRAGMA encoding"})
        EXPECT_EQ(made.rows(question), pinned.rows(question));
    EXPECT_EQ(made.rows("PRAGMA journal_mode"), std::vector{"wal"s});
    EXPECT_EQ(readBytes(folder.file()).mid(68, 4), "GigA");
}

TEST(PersistenceTest, CollectionMadeByAnotherProgramOpens)
{
    CollectionFolder folder;
    RawDatabase(folder.file())
        .execute(std::string(PinnedSchema) +
                 "INSERT INTO jokes VALUES (-3, 'Puns', 1, 5, 'a' || char(0) || 'b', NULL), "
                 "(40, NULL, NULL, NULL, NULL, ''); INSERT INTO rating VALUES (7, 'Mild')");
    PersistentContainer container = folder.open();
    EXPECT_EQ(liveRows(container.viewContext()), storedRows(folder.file()));
    EXPECT_THAT(liveRows(container.viewContext()),
                ElementsAre("-3|Puns|1|5|a\0b|NULL"s, "40|NULL|NULL|NULL|NULL|", "7|Mild"));
    EXPECT_EQ(insertJoke(container.viewContext(), {}).oid(), 41);
    container.viewContext().save();
    EXPECT_EQ(storedRows(folder.file()), liveRows(container.viewContext()));
}

TEST(PersistenceTest, AFileThatWasMadeBehindALinkIsNotLookedAtTwice)
{
    const CollectionFolder folder;
    const CollectionFolder elsewhere;
    const QString link = elsewhere.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(folder.path(), link));
    AppDelegate appDelegate(link);
    ManagedObjectContext& context = appDelegate.persistentContainer().viewContext();
    for (const QString& way : {link, folder.path()}) {
        PersistentContainer second(AppDelegate::ContainerName, way);
        second.loadPersistentStores([](const StoreError* error) { EXPECT_FALSE(error); });
        EXPECT_EQ(&second.viewContext(), &context) << "the locks of the first are gone";
    }
}

} // namespace

} // namespace giggle
