// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <functional>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace giggle {

namespace {

bool saves(ManagedObjectContext& context)
{
    try {
        context.save();
        return true;
    } catch (const StoreError&) {
        return false;
    }
}

constexpr int NotPossibleHere = 77;

/// Runs @p work in a child process; its exit status, 1 when an expectation failed in it.
int exitStatusOf(const std::function<int()>& work)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        const int status = work();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : status);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// In a child process: puts a file system of this size on the folder, for this process alone, or changes the
/// size of the one that is there.
bool mountSmallDisk(const QString& folder, const char* size, unsigned long flags = 0)
{
    if (flags == 0 && ::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    if (flags == 0)
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    return ::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", flags, size) == 0;
}

TEST(SurroundingsTest, DiskThatIsReallyFullFailsSavesUntilThereIsRoom)
{
    for (const char* size : {"size=48k", "size=100k", "size=400k"}) {
        SCOPED_TRACE(size);
        const CollectionFolder folder;
        const int status = exitStatusOf([&] {
            if (!mountSmallDisk(folder.path(), size))
                return NotPossibleHere;
            Rows acknowledged;
            const auto fill = [&](std::size_t jokeSize) {
                try {
                    const PersistentContainer container = folder.open();
                    EXPECT_EQ(rowsOf(container.viewContext()), acknowledged);
                    while (insertJoke(container.viewContext(), {.joke = std::string(jokeSize, 'x')}),
                           saves(container.viewContext()))
                        acknowledged = rowsOf(container.viewContext());
                    EXPECT_FALSE(saves(container.viewContext()));
                } catch (const StoreError& error) {
                    EXPECT_TRUE(acknowledged.empty()) << error.what();
                }
            };
            for (const std::size_t jokeSize : {3000, 100, 0})
                fill(jokeSize);
            EXPECT_TRUE(mountSmallDisk(folder.path(), "size=1m", MS_REMOUNT));
            expectFreshStart(folder, {{acknowledged}, {0}});
            return 0;
        });
        EXPECT_TRUE(status == 0 || status == NotPossibleHere) << status;
    }
}

TEST(SurroundingsTest, JokesInTheLogOfACrashNeverVanishWhereNothingCanBeWritten)
{
    CollectionFolder original;
    const PersistentContainer container = original.open();
    insertJoke(container.viewContext(), {.joke = "in the log alone"});
    container.viewContext().save();
    const Rows rows = rowsOf(container.viewContext());
    for (const mode_t folderMode : {0555U, 0777U}) {
        SCOPED_TRACE(folderMode);
        CollectionFolder crashed;
        original.copyAsAfterACrash(crashed);
        for (const char* suffix : {"", "-wal"})
            ::chmod(QFile::encodeName(crashed.file() + QLatin1StringView(suffix)).constData(), 0444);
        ::chmod(QFile::encodeName(crashed.path()).constData(), folderMode);
        const int status = exitStatusOf([&] {
            constexpr uid_t Nobody = 65534; // for an administrator nothing is read-only
            if (::geteuid() == 0 && ::setuid(Nobody) != 0)
                return NotPossibleHere;
            try {
                const PersistentContainer readOnly = crashed.open();
                EXPECT_EQ(rowsOf(readOnly.viewContext()), rows);
                insertJoke(readOnly.viewContext(), {.id = 1});
                EXPECT_FALSE(saves(readOnly.viewContext()));
            } catch (const StoreError& error) {
                EXPECT_TRUE(error.localizedDescription().contains(crashed.file())) << error.what();
            }
            return 0;
        });
        EXPECT_TRUE(status == 0 || status == NotPossibleHere) << status;
        ::chmod(QFile::encodeName(crashed.path()).constData(), 0700);
    }
}

struct Loss {
    const char* name;
    std::function<void(const CollectionFolder&)> happen;
};

TEST(SurroundingsTest, SaveIntoAFileThatIsGoneFailsInWords)
{
    const std::vector<Loss> losses = {
        {"folder removed", [](const auto& folder) { QDir(folder.path()).removeRecursively(); }},
        {"folder renamed",
         [](const auto& folder) { QDir().rename(folder.path(), folder.path() + QStringLiteral("-away")); }},
        {"file removed", [](const auto& folder) { QFile::remove(folder.file()); }},
        {"file replaced",
         [](const auto& folder) {
             const QString copy = folder.filePath(QStringLiteral("copy"));
             QFile::copy(folder.file(), copy);
             ::rename(QFile::encodeName(copy).constData(), QFile::encodeName(folder.file()).constData());
         }},
    };
    for (const Loss& loss : losses) {
        SCOPED_TRACE(loss.name);
        const CollectionFolder folder;
        const PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        insertJoke(context, {.id = 1});
        context.save();
        loss.happen(folder);
        insertJoke(context, {.id = 2});
        EXPECT_FALSE(saves(context)) << "acknowledged what no fresh start can find";
        EXPECT_TRUE(context.hasChanges());
        EXPECT_EQ(rowsOf(context).size(), 2U);
        QDir(folder.path() + QStringLiteral("-away")).removeRecursively();
    }
}

struct ForeignLock {
    const char* statements;
    bool opens;
    bool saves;
};

TEST(SurroundingsTest, CollectionThatAnotherProgramHoldsFailsInWordsAndGoesOnAfterwards)
{
    for (const ForeignLock& lock :
         {ForeignLock{"BEGIN; SELECT * FROM jokes", true, true}, ForeignLock{"BEGIN IMMEDIATE", true, false},
          ForeignLock{"BEGIN EXCLUSIVE; UPDATE jokes SET joke = joke", true, false},
          ForeignLock{"PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE", false, false}}) {
        SCOPED_TRACE(lock.statements);
        const CollectionFolder folder;
        Rows rows;
        {
            const PersistentContainer container = folder.open();
            insertJoke(container.viewContext(), {.id = 1});
            container.viewContext().save();
            rows = rowsOf(container.viewContext());
        }
        {
            RawDatabase other(folder.file());
            other.execute(lock.statements);
            bool opened = false;
            try {
                const PersistentContainer container = folder.open();
                ManagedObjectContext& context = container.viewContext();
                EXPECT_EQ(rowsOf(context), rows);
                opened = true;
                insertJoke(context, {.id = 2});
                EXPECT_EQ(saves(context), lock.saves);
                if (lock.saves)
                    rows = rowsOf(context);
            } catch (const StoreError& error) {
                EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("locked"))) << error.what();
            }
            EXPECT_EQ(opened, lock.opens);
        }
        expectFreshStart(folder, {{rows}, {0}});
    }
}

TEST(SurroundingsTest, InstancesThatStartTogetherMakeOneCollectionAndLoseNothing)
{
    for (int round = 0; round < (isLongRun() ? 200 : 10); ++round) {
        const CollectionFolder folder;
        std::vector<pid_t> children;
        for (int i = 0; i < 4; ++i) {
            children.push_back(::fork());
            if (children.back() != 0)
                continue;
            bool saved = false;
            try {
                const PersistentContainer container = folder.open();
                insertJoke(container.viewContext(), {.id = std::int16_t(i)});
                saved = saves(container.viewContext());
            } catch (const StoreError&) {
            }
            ::_exit(saved);
        }
        int saved = 0;
        for (const pid_t child : children) {
            int status = 0;
            ::waitpid(child, &status, 0);
            EXPECT_TRUE(WIFEXITED(status));
            saved += WEXITSTATUS(status);
        }
        EXPECT_GE(saved, 1);
        ASSERT_EQ(int(rowsOf(folder.open().viewContext()).size()), saved) << "in round " << round;
    }
}

TEST(SurroundingsTest, ClockThatWasSetBackChangesNothing)
{
    const CollectionFolder folder;
    SimulatedDisk disk(folder.path());
    Session session(folder, disk, Session::Kind::Daily);
    session.run();
    const timespec future[] = {{.tv_sec = 4'000'000'000, .tv_nsec = 0},
                               {.tv_sec = 4'000'000'000, .tv_nsec = 0}};
    for (const auto& [name, bytes] : folder.contents())
        ::utimensat(AT_FDCWD, QFile::encodeName(folder.filePath(name)).constData(), future, 0);
    expectFreshStart(folder, session.expectation());
}

} // namespace

} // namespace giggle
