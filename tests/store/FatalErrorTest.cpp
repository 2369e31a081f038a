// SPDX-License-Identifier: MIT
#include "store/FatalError.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <stdexcept>

#include <gtest/gtest.h>

namespace giggle {

namespace {

class FatalErrorTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QString m_record = m_folder.filePath(QStringLiteral("fatal-error"));
};

TEST_F(FatalErrorTest, WritesRecordsTellsAndAborts)
{
    EXPECT_EXIT(
        {
            setFatalErrorRecord(m_record);
            setFatalErrorNotifier([](const QString& message) {
                std::fprintf(stderr, "told: %s\n", message.toUtf8().constData());
            });
            fatalError(QStringLiteral("The café burnt"), "store/Some.cpp", 42);
        },
        testing::KilledBySignal(SIGABRT),
        "Fatal error: The caf.+ burnt: file store/Some\\.cpp, line 42\ntold: The caf.+ burnt");
    EXPECT_EQ(takeFatalErrorRecord(m_record), QStringLiteral("The café burnt"));
    EXPECT_EQ(takeFatalErrorRecord(m_record), std::nullopt);
}

TEST_F(FatalErrorTest, NothingOnTheWayKeepsItFromAborting)
{
    EXPECT_EXIT(
        {
            setFatalErrorNotifier([](const QString&) { throw std::runtime_error("no bus"); });
            fatalError(QStringLiteral("first"), "a.cpp", 1);
        },
        testing::KilledBySignal(SIGABRT), "Fatal error: first: file a.cpp, line 1");
    EXPECT_EXIT(
        {
            setFatalErrorNotifier([](const QString&) { fatalError(QStringLiteral("second"), "b.cpp", 2); });
            fatalError(QStringLiteral("first"), "a.cpp", 1);
        },
        testing::KilledBySignal(SIGABRT), "Fatal error: second: file b.cpp, line 2\n$");
    EXPECT_EXIT(
        {
            setFatalErrorRecord(QStringLiteral("/dev/full"));
            setFatalErrorNotifier([](const QString&) { std::fputs("told\n", stderr); });
            fatalError(QStringLiteral("first"), "a.cpp", 1);
        },
        testing::KilledBySignal(SIGABRT), "line 1\nCannot write /dev/full: .*\ntold\n");
}

TEST_F(FatalErrorTest, EmptyRecordOfAFullDiskIsRemovedSilently)
{
    ASSERT_TRUE(QFile(m_record).open(QIODevice::WriteOnly));
    EXPECT_EQ(takeFatalErrorRecord(m_record), std::nullopt);
    EXPECT_FALSE(QFile::exists(m_record));
}

} // namespace

} // namespace giggle
