// SPDX-License-Identifier: MIT
#include "store/FatalError.h"

#include <QTemporaryDir>

#include <csignal>
#include <cstdio>

#include <gtest/gtest.h>

namespace giggle {

namespace {

TEST(FatalErrorTest, WritesRecordsTellsAndAborts)
{
    const QTemporaryDir folder;
    const QString record = folder.filePath(QStringLiteral("fatal-error"));
    EXPECT_EXIT(
        {
            setFatalErrorRecord(record);
            setFatalErrorNotifier([](const QString& message) {
                std::fprintf(stderr, "told: %s\n", message.toUtf8().constData());
            });
            fatalError(QStringLiteral("The café burnt"), "store/Some.cpp", 42);
        },
        testing::KilledBySignal(SIGABRT),
        "Fatal error: The caf.+ burnt: file store/Some\\.cpp, line 42\ntold: The caf.+ burnt");
    EXPECT_EQ(takeFatalErrorRecord(record), QStringLiteral("The café burnt"));
    EXPECT_EQ(takeFatalErrorRecord(record), std::nullopt);
}

} // namespace

} // namespace giggle
