// SPDX-License-Identifier: MIT
#include "store/BulkSaving.h"
#include "tests/endurance/Session.h"

#include <array>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace giggle {

namespace {

using Fault = SimulatedDisk::Fault;
using Lasting = SimulatedDisk::Lasting;
using Unsynced = SimulatedDisk::Unsynced;

constexpr std::array AllKinds = {Session::Kind::Daily, Session::Kind::RollbackMode,
                                 Session::Kind::FirstLaunch};

/// What a power cut leaves and what may be found then, with the number of a call before which it happens.
/// What looks the same and promises the same counts once.
using PowerCuts = std::map<std::pair<SimulatedDisk::Image, Expectation>, int>;

/// Every power cut that may hit a session: before each call that changes something, with all that was not
/// synced lost, all kept, and random parts of it.
PowerCuts powerCutsOf(Session::Kind kind, int randomOnes, int& tried)
{
    CollectionFolder folder;
    SimulatedDisk disk(folder.path());
    Session session(folder, kind);
    std::mt19937 random(20261121);
    PowerCuts cuts;
    const auto cut = [&] {
        for (int i = 0; i < 2 + randomOnes; ++i, ++tried) {
            const auto unsynced = i == 0 ? Unsynced::Lost : i == 1 ? Unsynced::Kept : Unsynced::Random;
            cuts.try_emplace({disk.afterPowerCut(unsynced, random), session.expectation()}, disk.calls());
        }
    };
    disk.setObserver(cut);
    session.run();
    disk.setObserver({});
    cut();
    return cuts;
}

TEST(PowerCutTest, FreshStartFindsEverySaveThatWasAcknowledgedAndNoneHalf)
{
    for (const Session::Kind kind : AllKinds) {
        int tried = 0;
        for (const auto& [cut, call] : powerCutsOf(kind, isLongRun() ? 200 : 4, tried)) {
            expectFreshStart(cut.first, cut.second);
            ASSERT_FALSE(HasFailure()) << "power cut before call " << call << " of session " << int(kind);
        }
        reportCount("power cuts", tried);
    }
}

struct FaultKind {
    const char* name;
    Fault fault;
    Lasting lasting;
};

constexpr std::array FaultKinds = {
    FaultKind{"an error that passes", Fault::Error, Lasting::Once},
    FaultKind{"an error of a call that was carried out", Fault::ErrorButDone, Lasting::Once},
    FaultKind{"errors from then on", Fault::Error, Lasting::FromThenOn},
    FaultKind{"a full disk for a moment", Fault::NoSpace, Lasting::Once},
    FaultKind{"a full disk from then on", Fault::NoSpace, Lasting::FromThenOn},
    FaultKind{"a signal in between", Fault::Interrupted, Lasting::Once},
    FaultKind{"a write that comes out short", Fault::Short, Lasting::Once},
};

/// One fault at one call of a session. False when the session did not come that far.
bool survives(Session::Kind kind, const FaultKind& fault, int call, bool withReads)
{
    CollectionFolder folder;
    SimulatedDisk disk(folder.path());
    Session session(folder, kind, [&] { return disk.hasFailed(); });
    disk.failAt(call, fault.fault, fault.lasting, withReads);
    session.run();
    const bool cameThatFar = disk.calls() >= call;
    disk.repair();
    std::mt19937 random(static_cast<unsigned>(call));
    const SimulatedDisk::Image afterPowerCut = disk.afterPowerCut(Unsynced::Lost, random);
    expectFreshStart(folder, session.expectation());
    // And when the power fails on top of it.
    if (fault.fault != Fault::ErrorButDone) {
        SCOPED_TRACE("with a power cut at the end");
        expectFreshStart(afterPowerCut, session.expectation());
    }
    return cameThatFar;
}

TEST(DiskFaultsTest, NothingAcknowledgedIsLostOrHalfWhicheverCallFails)
{
    const int step = isLongRun() ? 1 : 3;
    for (const FaultKind& fault : FaultKinds) {
        int tried = 0;
        for (const Session::Kind kind : AllKinds)
            for (const bool withReads : {false, true}) {
                if (withReads && fault.fault != Fault::Error)
                    continue;
                int call = 1 + int(&fault - FaultKinds.data()) % step;
                for (; survives(kind, fault, call, withReads); call += step * (withReads ? 3 : 1)) {
                    ++tried;
                    ASSERT_FALSE(HasFailure()) << fault.name << " at call " << call << " of session "
                                               << int(kind) << (withReads ? " with reads" : "");
                }
            }
        reportCount(fault.name, tried);
    }
}

/// A collection with one saved joke on a disk that can fail.
struct DiskWithAJoke {
    CollectionFolder folder;
    SimulatedDisk disk{folder.path()};
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    Jokes& joke = insertJoke(context, {.id = 1, .joke = "before"});

    DiskWithAJoke() { context.save(); }

    /// A fresh start finds what is in memory, also after a power cut now.
    void expectEverythingOnTheDisk(bool alsoAfterAPowerCut)
    {
        std::mt19937 random;
        EXPECT_FALSE(context.hasChanges());
        const Expectation expected{{liveRows(context)}, {0}};
        if (alsoAfterAPowerCut)
            expectFreshStart(disk.afterPowerCut(Unsynced::Lost, random), expected);
        closeContainer(container);
        expectFreshStart(folder, expected);
    }
};

TEST(DiskFaultsTest, ChangesOfAFailedSaveCanBeTakenBack)
{
    for (const Fault fault : {Fault::Error, Fault::ErrorButDone}) {
        int call = 1;
        for (bool cameThatFar = true; cameThatFar; ++call) {
            DiskWithAJoke saved;
            Jokes& deleted = insertJoke(saved.context, {.id = 3});
            saved.context.save();
            saved.joke.setJoke(std::string(9000, 'y'));
            Jokes& inserted = insertJoke(saved.context, {.id = 2});
            saved.context.deleteObject(deleted);
            saved.disk.failAt(call, fault, Lasting::Once);
            const bool isSaved = saves(saved.context);
            EXPECT_EQ(saved.context.hasChanges(), !isSaved);
            cameThatFar = saved.disk.hasFailed();
            saved.disk.repair();
            saved.joke.setJoke("before");
            saved.context.deleteObject(inserted);
            saved.context.restore(deleted);
            saved.context.save();
            // What was carried out all the same may come back after a power cut.
            saved.expectEverythingOnTheDisk(fault != Fault::ErrorButDone);
            ASSERT_FALSE(HasFailure()) << "call " << call;
        }
        reportCount("changes taken back", call - 2);
    }
}

TEST(DiskFaultsTest, BulkSavingTriesFewerAndFewerSavesWhileTheyFailAndWritesAllInTheEnd)
{
    DiskWithAJoke saved;
    BulkSaving bulk(saved.context);
    saved.disk.failAt(1, Fault::Error, Lasting::FromThenOn);
    int failures = 0;
    for (std::int16_t id = 2; id <= 200; ++id) {
        insertJoke(saved.context, {.id = id});
        try {
            bulk.save();
        } catch (const StoreError&) {
            ++failures;
        }
    }
    EXPECT_GT(failures, 2);
    EXPECT_LT(failures, 12);
    saved.disk.repair();
    bulk.finish();
    saved.expectEverythingOnTheDisk(true);
}

/// SQLite's requests for memory: their number, and that of the one that is refused, alone or with all others.
struct Requests {
    static inline int made = 0;
    static inline int refused = 0;
    static inline bool isLasting = false;
    static inline sqlite3_mem_methods system{};

    [[nodiscard]] static bool isRefused()
    {
        ++made;
        return refused > 0 && (isLasting ? made >= refused : made == refused);
    }
};

/// Before SQLite is first used.
[[maybe_unused]] const int configured = [] {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &Requests::system);
    sqlite3_mem_methods scarce = Requests::system;
    scarce.xMalloc = [](int size) {
        return Requests::isRefused() ? nullptr : Requests::system.xMalloc(size);
    };
    scarce.xRealloc = [](void* memory, int size) {
        return Requests::isRefused() ? nullptr : Requests::system.xRealloc(memory, size);
    };
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &scarce);
}();

TEST(LowMemoryTest, ARefusedRequestIsAFailedCallAndNothingElse)
{
    int tried = 0;
    for (const bool isLasting : {false, true}) {
        bool cameThatFar = true;
        for (int request = 1; cameThatFar; request += isLongRun() ? 1 : 7) {
            const CollectionFolder folder;
            Session session(folder, Session::Kind::Daily, [&] { return Requests::made >= request; });
            Requests::made = 0;
            Requests::refused = request;
            Requests::isLasting = isLasting;
            session.run();
            cameThatFar = Requests::made >= request;
            Requests::refused = 0;
            expectFreshStart(folder, session.expectation());
            ++tried;
            ASSERT_FALSE(HasFailure()) << "request " << request << (isLasting ? " and all others" : "");
        }
    }
    reportCount("refused requests for memory", tried);
}

} // namespace

} // namespace giggle
