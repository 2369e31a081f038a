// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include <QCryptographicHash>

#include <array>
#include <set>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Fault = SimulatedDisk::Fault;
using Lasting = SimulatedDisk::Lasting;
using Unsynced = SimulatedDisk::Unsynced;

constexpr std::array AllKinds = {Session::Kind::Daily, Session::Kind::RollbackMode,
                                 Session::Kind::FirstLaunch};

bool hasNewFailure(bool before)
{
    return testing::Test::HasFailure() && !before;
}

struct PowerCut {
    SimulatedDisk::Image image;
    Expectation expected;
    int call = 0;
};

/// Every power cut that may hit a session: before each call that changes something, with all that was not
/// synced lost, all kept, and random parts of it. What looks the same and promises the same counts once.
std::vector<PowerCut> powerCutsOf(Session::Kind kind, int randomOnes, int& tried)
{
    CollectionFolder folder;
    SimulatedDisk disk(folder.path());
    Session session(folder, disk, kind);
    std::mt19937 random(20261121);
    std::vector<PowerCut> cuts;
    std::set<QByteArray> known;
    const auto cut = [&] {
        for (int i = 0; i < 2 + randomOnes; ++i) {
            const auto unsynced = i == 0 ? Unsynced::Lost : i == 1 ? Unsynced::Kept : Unsynced::Random;
            SimulatedDisk::Image image = disk.afterPowerCut(unsynced, random);
            const auto [collections, sizes] = session.moment();
            QCryptographicHash hash(QCryptographicHash::Sha1);
            for (const auto& [name, bytes] : image) {
                hash.addData(name.toUtf8() + ':' + QByteArray::number(bytes.size()));
                hash.addData(bytes);
            }
            for (const std::size_t number :
                 {collections.first, collections.second, sizes.first, sizes.second})
                hash.addData(QByteArray::number(qulonglong(number)) + ' ');
            ++tried;
            if (known.insert(hash.result()).second)
                cuts.push_back({std::move(image), session.expectation(), disk.calls()});
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
        int failures = 0;
        for (const PowerCut& cut : powerCutsOf(kind, isLongRun() ? 200 : 4, tried)) {
            SCOPED_TRACE("power cut before call " + std::to_string(cut.call) + " of session " +
                         std::to_string(int(kind)));
            const bool before = HasFailure();
            expectFreshStart(cut.image, cut.expected);
            failures += hasNewFailure(before);
            ASSERT_FALSE(HasFailure());
        }
        reportCount("power cuts", tried, tried - failures);
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
    Session session(folder, disk, kind);
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
        int failures = 0;
        for (const Session::Kind kind : AllKinds)
            for (const bool withReads : {false, true}) {
                if (withReads && fault.fault != Fault::Error)
                    continue;
                const int first = 1 + int(&fault - FaultKinds.data()) % step;
                for (int call = first;; call += step * (withReads ? 3 : 1)) {
                    SCOPED_TRACE(std::string(fault.name) + " at call " + std::to_string(call) +
                                 " of session " + std::to_string(int(kind)) +
                                 (withReads ? " with reads" : ""));
                    const bool before = HasFailure();
                    const bool cameThatFar = survives(kind, fault, call, withReads);
                    failures += hasNewFailure(before);
                    ASSERT_FALSE(HasFailure());
                    if (!cameThatFar)
                        break;
                    ++tried;
                }
            }
        reportCount(fault.name, tried, tried - failures);
    }
}

} // namespace

} // namespace giggle
