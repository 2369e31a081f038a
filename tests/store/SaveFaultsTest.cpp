// SPDX-License-Identifier: MIT
#include "store/WriteSignals.h"
#include "tests/support/CollectionFolder.h"
#include "tests/support/FaultyVfs.h"

#include <array>
#include <csignal>

#include <gmock/gmock.h>
#include <sys/resource.h>

namespace giggle {

namespace {

using testing::AnyOf;
using testing::Eq;
using Failing = FaultyVfs::Failing;

bool saves(ManagedObjectContext& context)
{
    try {
        context.save();
        return true;
    } catch (const StoreError&) {
        return false;
    }
}

enum class Afterwards { TryAgain, TakeBackAndTryAgain, ProgramEnds };

/// Lets the operation with this number of a save fail; false when the save did not come that far.
bool failSaveAt(int operation, Failing failing, Afterwards afterwards, const char* mode)
{
    CollectionFolder folder;
    FaultyVfs vfs;
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    Jokes& changed = insertJoke(context, {.category = "Puns", .id = 1, .joke = "before"});
    Jokes& deleted = insertJoke(context, {.id = 2, .joke = std::string(9000, 'x')});
    context.save();
    const std::vector<std::string> before = liveRows(context);
    context.store().database().execute(mode);

    changed.setJoke(std::string(9000, 'y'));
    context.deleteObject(deleted);
    Jokes& inserted = insertJoke(context, {.id = 3});
    insertCategory(context, "Puns");
    std::vector<std::string> after = liveRows(context);
    vfs.failAt(operation, failing);
    const bool saved = saves(context);
    EXPECT_EQ(context.hasChanges(), !saved);
    if (!saved && failing == Failing::FromThenOn) {
        EXPECT_FALSE(saves(context));
        EXPECT_TRUE(context.hasChanges());
    }
    const bool hasFailed = vfs.hasFailed();
    EXPECT_TRUE(saved || hasFailed);
    EXPECT_FALSE(saved && vfs.hasUnsyncedLog());
    EXPECT_EQ(liveRows(context), after);
    if (afterwards == Afterwards::TakeBackAndTryAgain) {
        changed.setJoke("before");
        context.deleteObject(inserted);
        context.restore(deleted);
        after = liveRows(context);
    }
    if (afterwards != Afterwards::ProgramEnds) {
        vfs.disarm();
        EXPECT_NO_THROW(context.save());
        EXPECT_FALSE(context.hasChanges());
    }
    closeContainer(container);
    vfs.disarm();
    container = folder.open();
    const std::vector<std::string> found = liveRows(container.viewContext());
    if (saved || afterwards != Afterwards::ProgramEnds)
        EXPECT_EQ(found, after);
    else
        EXPECT_THAT(found, AnyOf(Eq(before), Eq(after)));
    EXPECT_TRUE(saves(container.viewContext()));
    return hasFailed;
}

/// How commits reach the file: moved out of the log now and then, or each at once; or by way of a rollback
/// journal, in which a store stays that could not be converted for want of space.
constexpr std::array Modes = {"PRAGMA wal_autocheckpoint = 3", "PRAGMA wal_autocheckpoint = 1",
                              "PRAGMA journal_mode = DELETE"};

TEST(SaveFaultsTest, NothingIsLostOrHalfWhicheverOperationFails)
{
    for (const Failing failing : {Failing::Once, Failing::OnceButDone, Failing::FromThenOn})
        for (const Afterwards afterwards :
             {Afterwards::TryAgain, Afterwards::TakeBackAndTryAgain, Afterwards::ProgramEnds})
            for (const char* mode : Modes) {
                int operation = 1;
                while (failSaveAt(operation, failing, afterwards, mode) && !testing::Test::HasFailure())
                    ++operation;
                EXPECT_GT(operation, 5);
                ASSERT_FALSE(testing::Test::HasFailure())
                    << mode << ", operation " << operation << ", failing " << int(failing) << ", tried again "
                    << (afterwards == Afterwards::TryAgain);
            }
}

TEST(BulkSavingTest, TriesFewerAndFewerSavesWhileTheyFailAndWritesAllInTheEnd)
{
    const CollectionFolder folder;
    FaultyVfs faults;
    const PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    BulkSaving bulk(context);
    faults.failAt(1, FaultyVfs::Failing::FromThenOn);
    int failures = 0;
    for (std::int16_t id = 1; id <= 200; ++id) {
        insertJoke(context, {.id = id});
        try {
            bulk.save();
        } catch (const StoreError&) {
            ++failures;
        }
    }
    EXPECT_GT(failures, 2);
    EXPECT_LT(failures, 12);
    faults.disarm();
    bulk.finish();
    EXPECT_FALSE(context.hasChanges());
    EXPECT_FALSE(faults.hasUnsyncedLog());
    RawDatabase stored(folder.file());
    EXPECT_EQ(storedRows(stored).size(), 200U);
}

TEST(FullDiskTest, SaveFailsAndGoesInOnceThereIsRoom)
{
    const CollectionFolder folder;
    PersistentContainer container = folder.open();
    insertJoke(container.viewContext(), {.joke = std::string(200'000, 'x')});
    ignoreWriteSignals();
    rlimit unlimited = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
    const rlimit full = {40'000, unlimited.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    const bool saved = saves(container.viewContext());
    setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, SIG_DFL);
    EXPECT_FALSE(saved);
    EXPECT_TRUE(saves(container.viewContext()));
    EXPECT_EQ(storedRows(folder.file()), liveRows(container.viewContext()));
}

} // namespace

} // namespace giggle
