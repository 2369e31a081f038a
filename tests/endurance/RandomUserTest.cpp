// SPDX-License-Identifier: MIT
#include "tests/endurance/RandomUser.h"

#include "app/DailyCopying.h"
#include "store/PreferenceKeys.h"
#include "tests/support/HurriedAnimations.h"
#include "tests/support/LongRun.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QQmlEngine>
#include <QTest>

#include <climits>
#include <fstream>

#include <malloc.h>
#include <unistd.h>

namespace giggle {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

#ifdef __SANITIZE_ADDRESS__
constexpr int LargestGrowth = INT_MAX; // the sanitizer keeps memory that was freed
#else
constexpr int LargestGrowth = 6 * 1024;
#endif

/// In kilobytes, without what the allocator holds back.
int residentKilobytes()
{
    ::malloc_trim(0);
    long total = 0; // with a sanitizer more pages than an int holds
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return int(resident * (::sysconf(_SC_PAGESIZE) / 1024));
}

class LongUseTest : public RandomUser {
protected:
    LongUseTest() : RandomUser({}, 20261121) {}

    void use(int deeds)
    {
        for (int i = 0; i < deeds && !HasFailure(); ++i)
            below(2) ? saveSomething() : readSomething();
    }

    /// In the window's first size, on which its pictures depend.
    int memory()
    {
        window().resize(360, 640);
        QTest::qWait(500);
        qmlEngine(&window())->collectGarbage();
        QTest::qWait(100);
        return residentKilobytes();
    }
};

/// A deed takes a user, who has to read, think and type, about three seconds.
TEST_F(LongUseTest, EveryDeedSavesWhatItSaysAndMemoryStaysFlat)
{
    const HurriedAnimations hurry;
    const int deeds = isLongRun() ? 1200 : 120;
    begin();
    QElapsedTimer watch;
    watch.start();
    use(deeds / 2);
    const int before = memory();
    use(deeds / 2);
    const int after = memory();
    EXPECT_EQ(possible(), QList<SavedRows>{savedRows(context(), userDefaults())});
    std::printf("%d deeds in %d s; resident %d kB in the middle, %d kB at the end\n", deeds,
                int(watch.elapsed() / 1000), before, after);
    EXPECT_LT(after - before, LargestGrowth);
}

constexpr const char* FolderVariable = "GIGGLE_KILLED_FOLDER";
constexpr const char* SeedVariable = "GIGGLE_KILLED_SEED";
const QString Promises = u"/promises"_qs;

/// Saves at random until it is killed, and writes down what a start now may find. Run by the test below in a
/// process of its own.
class KilledUser : public RandomUser {
protected:
    KilledUser()
        : RandomUser(qEnvironmentVariable(FolderVariable), qEnvironmentVariableIntValue(SeedVariable))
    {
        EXPECT_TRUE(m_promises.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    }

    void possibleChanged() override
    {
        QByteArray record;
        QDataStream stream(&record, QIODevice::WriteOnly);
        stream << possible();
        m_promises.write(record);
    }

    QFile m_promises{qEnvironmentVariable(FolderVariable) + Promises};
};

TEST_F(KilledUser, DISABLED_SavesUntilItIsKilled)
{
    const HurriedAnimations hurry;
    const DailyCopying copying(appDelegate(), {.quiet = 100ms, .interval = 300ms});
    begin();
    while (!HasFailure())
        saveSomething();
}

/// Lets a user save until it is killed, a while after its start or, if it gets that far, its first promise.
void useUntilKilled(const QString& folder, int seed, std::chrono::milliseconds lifetime,
                    bool fromFirstPromise)
{
    QFile::remove(folder + Promises);
    qputenv(FolderVariable, folder.toUtf8());
    qputenv(SeedVariable, QByteArray::number(seed));
    QProcess user;
    user.setProcessChannelMode(QProcess::MergedChannels);
    user.start(QCoreApplication::applicationFilePath(),
               {u"--gtest_also_run_disabled_tests"_qs,
                u"--gtest_filter=KilledUser.DISABLED_SavesUntilItIsKilled"_qs});
    const auto hasPromised = [&] { return QFileInfo(folder + Promises).size() > 0; };
    EXPECT_TRUE(!fromFirstPromise || QTest::qWaitFor(hasPromised, 30'000));
    EXPECT_FALSE(user.waitForFinished(int(lifetime.count())))
        << "the user ended by itself: " << user.readAll().right(3000).toStdString();
    user.kill();
    user.waitForFinished();
}

/// What a user has written down, less what the kill has cut off.
QList<QList<SavedRows>> promisesIn(const QString& folder)
{
    QList<QList<SavedRows>> promises;
    QFile file(folder + Promises);
    file.open(QIODevice::ReadOnly); // there is none when it was killed while it was starting
    QDataStream stream(&file);
    for (QList<SavedRows> promise; stream >> promise, stream.status() == QDataStream::Ok;)
        promises << promise;
    return promises;
}

/// What a fresh start finds; all of it must be whole.
SavedRows freshStart(const CollectionFolder& folder)
{
    const Preferences preferences(folder.filePath(u"preferences.json"_qs));
    EXPECT_FALSE(QFile::exists(folder.filePath(u"preferences.json.damaged"_qs)));
    const SavedRows rows = savedRows(folder.open().viewContext(), preferences);
    QDirIterator files(folder.path(), {u"*.sqlite"_qs}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        EXPECT_EQ(RawDatabase(files.next()).rows("PRAGMA integrity_check"), std::vector<std::string>{"ok"})
            << files.filePath().toStdString();
    return rows;
}

TEST(KilledUserTest, WhatTheScreensHaveAcknowledgedIsFoundByTheNextStart)
{
    const int kills = isLongRun() ? 500 : 15;
    constexpr int KillsOfOneCollection = 8;
    std::mt19937 random(static_cast<unsigned>(kills));
    std::unique_ptr<CollectionFolder> folder;
    std::optional<SavedRows> before;
    int acknowledged = 0;
    for (int kill = 0; kill < kills; ++kill) {
        if (kill % KillsOfOneCollection == 0) {
            folder = std::make_unique<CollectionFolder>();
            before.reset();
        }
        const bool atStart = kill % 5 == 0;
        const std::chrono::milliseconds lifetime(
            std::uniform_int_distribution(0, atStart ? 900 : 2500)(random));
        useUntilKilled(folder->path(), kill, lifetime, !atStart);
        const QList<QList<SavedRows>> promises = promisesIn(folder->path());
        const SavedRows found = freshStart(*folder);
        if (!promises.isEmpty()) {
            EXPECT_TRUE(!before || promises.first() == QList<SavedRows>{*before})
                << "the screens show other things";
            EXPECT_TRUE(promises.last().contains(found)) << "neither what was acknowledged nor tried since";
        } else if (before) {
            EXPECT_EQ(found, *before);
        }
        ASSERT_FALSE(HasFailure()) << "kill " << kill;
        acknowledged += int(promises.size()) / 2; // each is written down when it is tried, and then
        before = found;
        // Without the flag the next launch fills the collection again; without a font size the user sets one.
        const Preferences preferences(folder->filePath(u"preferences.json"_qs));
        if (!preferences.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag) ||
            !preferences.isPresent(PreferenceKeys::ListFontSize))
            before.reset();
    }
    reportCount("users killed", kills);
    EXPECT_GT(acknowledged, kills / 2) << "hardly anything was saved";
}

} // namespace

} // namespace giggle
