// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <functional>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace giggle {

namespace {

/// Starts @p work in a child process.
pid_t begin(const std::function<int()>& work)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    const int status = work();
    std::fflush(nullptr);
    ::_exit(testing::Test::HasFailure() ? 1 : status);
}

int exitStatusOf(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// A user who is no administrator, for whom nothing is read-only, opens a collection and tries to save.
void useReadOnly(const CollectionFolder& folder, const Rows& rows, bool mayRefuse)
{
    const pid_t child = begin([&] {
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && ::setuid(Nobody) != 0)
            return 0; // not possible here
        try {
            const PersistentContainer readOnly = folder.open();
            EXPECT_EQ(liveRows(readOnly.viewContext()), rows);
            insertJoke(readOnly.viewContext(), {.id = 1});
            EXPECT_FALSE(saves(readOnly.viewContext()));
            EXPECT_TRUE(readOnly.viewContext().hasChanges());
        } catch (const StoreError& error) {
            EXPECT_TRUE(mayRefuse) << error.what();
            EXPECT_TRUE(error.localizedDescription().contains(folder.file())) << error.what();
        }
        return 0;
    });
    EXPECT_EQ(exitStatusOf(child), 0);
}

TEST(SurroundingsTest, NothingVanishesWhereNothingCanBeWritten)
{
    for (const bool hasLog : {false, true})
        for (const mode_t folderMode : {0555, 0777}) {
            SCOPED_TRACE(testing::Message() << (hasLog ? "with a log, mode " : "mode ") << folderMode);
            const CollectionFolder original;
            PersistentContainer container = original.open();
            insertJoke(container.viewContext(), {.joke = "in the log alone"});
            container.viewContext().save();
            const Rows rows = liveRows(container.viewContext());
            const CollectionFolder folder;
            original.copyAsAfterACrash(folder);
            if (!hasLog)
                static_cast<void>(folder.open()); // which moves it into the file
            for (const QString& file : QDir(folder.path()).entryList(QDir::Files))
                ::chmod(QFile::encodeName(folder.filePath(file)).constData(), 0444);
            const QByteArray before = readBytes(folder.file());
            ::chmod(QFile::encodeName(folder.path()).constData(), folderMode);
            useReadOnly(folder, rows, hasLog);
            ::chmod(QFile::encodeName(folder.path()).constData(), 0700);
            EXPECT_EQ(readBytes(folder.file()), before);
        }
}

TEST(SurroundingsTest, SaveIntoAFileThatIsGoneFailsInWords)
{
    const std::pair<const char*, std::function<void(const CollectionFolder&)>> losses[] = {
        {"folder removed", [](const auto& folder) { QDir(folder.path()).removeRecursively(); }},
        {"folder renamed",
         [](const auto& folder) { QDir().rename(folder.path(), folder.path() + QStringLiteral("-away")); }},
        {"file removed", [](const auto& folder) { QFile::remove(folder.file()); }},
        {"log removed", [](const auto& folder) { QFile::remove(folder.file() + QStringLiteral("-wal")); }},
        {"file replaced",
         [](const auto& folder) {
             const QString copy = folder.filePath(QStringLiteral("copy"));
             QFile::copy(folder.file(), copy);
             ::rename(QFile::encodeName(copy).constData(), QFile::encodeName(folder.file()).constData());
         }},
    };
    for (const auto& [name, happen] : losses) {
        SCOPED_TRACE(name);
        const CollectionFolder folder;
        const PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        insertJoke(context, {.id = 1});
        context.save();
        happen(folder);
        insertJoke(context, {.id = 2});
        EXPECT_FALSE(saves(context)) << "acknowledged what no fresh start can find";
        EXPECT_TRUE(context.hasChanges());
        EXPECT_EQ(liveRows(context).size(), 2U);
        QDir(folder.path() + QStringLiteral("-away")).removeRecursively();
    }
}

TEST(SurroundingsTest, CollectionThatAnotherProgramHoldsFailsInWordsAndGoesOnAfterwards)
{
    const struct {
        const char* statements;
        bool opens;
        bool saves;
    } locks[] = {{"BEGIN; SELECT * FROM jokes", true, true},
                 {"BEGIN IMMEDIATE", true, false},
                 {"BEGIN EXCLUSIVE; UPDATE jokes SET joke = joke", true, false},
                 {"PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE", false, false}};

    for (const auto& lock : locks) {
        SCOPED_TRACE(lock.statements);
        const CollectionFolder folder;
        PersistentContainer container = folder.open();
        insertJoke(container.viewContext(), {.id = 1});
        container.viewContext().save();
        Rows rows = liveRows(container.viewContext());
        closeContainer(container);
        {
            RawDatabase other(folder.file());
            other.execute(lock.statements);
            bool opened = false;
            try {
                const PersistentContainer again = folder.open();
                opened = true;
                EXPECT_EQ(liveRows(again.viewContext()), rows);
                insertJoke(again.viewContext(), {.id = 2});
                EXPECT_EQ(saves(again.viewContext()), lock.saves);
                if (lock.saves)
                    rows = liveRows(again.viewContext());
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
        for (int i = 0; i < 4; ++i)
            children.push_back(begin([&] {
                try {
                    const PersistentContainer container = folder.open();
                    insertJoke(container.viewContext(), {.id = 1});
                    return saves(container.viewContext()) ? 2 : 0;
                } catch (const StoreError&) {
                    return 0;
                }
            }));
        int saved = 0;
        for (const pid_t child : children)
            saved += exitStatusOf(child) / 2;
        EXPECT_GE(saved, 1);
        ASSERT_EQ(int(liveRows(folder.open().viewContext()).size()), saved) << "in round " << round;
    }
}

TEST(SurroundingsTest, ClockThatWasSetBackChangesNothing)
{
    const CollectionFolder folder;
    Session session(folder, Session::Kind::Daily);
    session.run();
    const timespec future[] = {{4'000'000'000, 0}, {4'000'000'000, 0}};
    for (const auto& [name, bytes] : folder.contents())
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(folder.filePath(name)).constData(), future, 0), 0);
    expectFreshStart(folder, session.expectation());
}

} // namespace

} // namespace giggle
