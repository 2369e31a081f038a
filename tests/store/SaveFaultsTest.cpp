// SPDX-License-Identifier: MIT
#include "store/WriteSignals.h"
#include "tests/support/CollectionFolder.h"
#include "tests/support/FaultyVfs.h"

#include <array>
#include <csignal>
#include <random>

#include <gmock/gmock.h>
#include <sys/resource.h>

namespace giggle {

namespace {

using testing::AnyOf;
using testing::Contains;
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
    EXPECT_EQ(liveRows(context), after);
    if (afterwards == Afterwards::TakeBackAndTryAgain) {
        changed.setJoke("before");
        context.deleteObject(inserted);
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

/// Changes, failing saves and saves of any kind in any order: what is stored is always what the last save
/// wrote or what a failed one since then tried to write, and in the end everything.
TEST(RandomFaultsTest, NoSequenceOfFailedSavesLosesOrRefusesAnything)
{
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto below = [&](int limit) { return std::uniform_int_distribution(0, limit - 1)(random); };
        CollectionFolder folder;
        FaultyVfs vfs;
        PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        context.store().database().execute(Modes[seed % Modes.size()]);
        std::vector<std::vector<std::string>> possible{liveRows(context)};
        for (int round = 0; round < 25; ++round) {
            for (int changes = below(4); changes > 0; --changes) {
                const std::vector<Jokes*> jokes = context.fetch(Jokes::fetchRequest());
                Jokes* joke =
                    jokes.empty() ? nullptr : jokes[static_cast<std::size_t>(below(int(jokes.size())))];
                if (const int what = below(6); !joke || what < 2)
                    insertJoke(context, {.id = std::int16_t(round)});
                else if (what == 2)
                    context.deleteObject(*joke);
                else
                    joke->setJoke(
                        std::string(static_cast<std::size_t>(below(2) * 5000), char('a' + below(2))));
            }
            const int operation = below(3) == 0 ? 0 : 1 + below(15);
            vfs.failAt(operation, std::array{Failing::Once, Failing::OnceButDone,
                                             Failing::FromThenOn}[static_cast<std::size_t>(below(3))]);
            const bool saved = saves(context);
            vfs.disarm();
            ASSERT_TRUE(saved || vfs.hasFailed()) << "refused without a fault in round " << round;
            ASSERT_EQ(context.hasChanges(), !saved);
            if (saved)
                possible.clear();
            possible.push_back(liveRows(context));
            ASSERT_THAT(possible, Contains(storedRows(folder.file())));
        }
        ASSERT_TRUE(saves(context));
        possible = {liveRows(context)};
        closeContainer(container);
        ASSERT_EQ(storedRows(folder.file()), possible.back());
    }
}

TEST(OpeningFaultsTest, ProgramThatEndsWhileItMakesTheCollectionLeavesOneThatOpens)
{
    bool hasFailed = true;
    for (int operation = 1; hasFailed && !testing::Test::HasFailure(); ++operation) {
        SCOPED_TRACE(operation);
        CollectionFolder folder;
        FaultyVfs vfs;
        vfs.failAt(operation, Failing::FromThenOn);
        try {
            static_cast<void>(folder.open());
        } catch (const StoreError&) {
        }
        hasFailed = vfs.hasFailed();
        vfs.disarm();
        try {
            PersistentContainer container = folder.open();
            insertJoke(container.viewContext(), {.id = 1});
            container.viewContext().save();
            EXPECT_EQ(storedRows(folder.file()).size(), 1U);
        } catch (const StoreError& error) {
            ADD_FAILURE() << error.what();
        }
    }
}

TEST(OpeningFaultsTest, CollectionShowsAllOrSaysWhyWhicheverOperationFails)
{
    CollectionFolder closed;
    CollectionFolder crashed;
    std::vector<std::string> rows;
    {
        PersistentContainer container = closed.open();
        insertJoke(container.viewContext(), {.id = 1});
        container.viewContext().save();
        closeContainer(container);
        container = closed.open();
        insertJoke(container.viewContext(), {.id = 2});
        container.viewContext().save();
        rows = liveRows(container.viewContext());
        closed.copyAsAfterACrash(crashed);
    }
    for (const CollectionFolder* original : {&closed, &crashed})
        for (const Failing failing : {Failing::Once, Failing::FromThenOn}) {
            bool hasFailed = true;
            for (int operation = 1; hasFailed && !testing::Test::HasFailure(); ++operation) {
                CollectionFolder folder;
                for (const auto& [name, bytes] : original->contents())
                    writeBytes(folder.filePath(name), bytes);
                FaultyVfs vfs;
                vfs.failAt(operation, failing);
                try {
                    PersistentContainer container = folder.open();
                    EXPECT_EQ(liveRows(container.viewContext()), rows);
                } catch (const StoreError&) {
                }
                hasFailed = vfs.hasFailed();
                vfs.disarm();
                EXPECT_EQ(liveRows(folder.open().viewContext()), rows);
            }
        }
}

/// As long as it lives no file of this process can be longer than a number of bytes.
class FullDisk {
public:
    explicit FullDisk(rlim_t largestFile)
    {
        ignoreWriteSignals();
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit full = {largestFile, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }

    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_DFL);
    }

    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

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

TEST(FullDiskTest, CollectionStillOpensAndSavesOnceThereIsRoom)
{
    CollectionFolder original;
    CollectionFolder crashed;
    {
        PersistentContainer container = original.open();
        insertJoke(container.viewContext(), {.joke = "in the log alone"});
        container.viewContext().save();
        original.copyAsAfterACrash(crashed);
    }
    for (const CollectionFolder* folder : {&original, &crashed}) {
        std::vector<std::string> rows = {"1|NULL|NULL|NULL|in the log alone|NULL"};
        for (const rlim_t largestFile : {0, 4096, 40'000}) {
            SCOPED_TRACE(largestFile);
            PersistentContainer container{QString(), QString()};
            {
                const FullDisk fullDisk(largestFile);
                ASSERT_NO_THROW(container = folder->open());
                EXPECT_EQ(liveRows(container.viewContext()), rows);
                insertJoke(container.viewContext(), {.joke = std::string(200'000, 'x')});
                EXPECT_FALSE(saves(container.viewContext()));
                EXPECT_FALSE(saves(container.viewContext()));
            }
            EXPECT_EQ(liveRows(container.viewContext()).size(), rows.size() + 1);
            EXPECT_TRUE(saves(container.viewContext()));
            rows = liveRows(container.viewContext());
            closeContainer(container);
            EXPECT_EQ(liveRows(folder->open().viewContext()), rows);
        }
    }
}

} // namespace

} // namespace giggle
