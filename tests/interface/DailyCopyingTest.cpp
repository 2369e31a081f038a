// SPDX-License-Identifier: MIT
#include "app/DailyCopying.h"

#include "tests/support/ScreenFixture.h"

#include <QDir>
#include <QTest>

namespace giggle {

namespace {

using namespace std::chrono_literals;

using DailyCopyingTest = ScreenFixture;

TEST_F(DailyCopyingTest, CopiesWhenItIsQuietAndWhatIsLeftAtTheEnd)
{
    const QDir copies(folder.filePath(QStringLiteral("copies")));
    const auto jokesInCopies = [&] {
        std::size_t rows = 0;
        for (const QFileInfo& copy : copies.entryInfoList({QStringLiteral("*.sqlite")}, QDir::Files))
            rows += storedRows(copy.filePath()).size();
        return rows;
    };
    {
        const DailyCopying copying(appDelegate, {.quiet = 20ms, .interval = 1h});
        QTest::qWait(60);
        EXPECT_EQ(jokesInCopies(), 0U) << "nothing has changed";
        addJoke({.id = 1});
        EXPECT_TRUE(QTest::qWaitFor([&] { return jokesInCopies() == 1; }));
        addJoke({.id = 2});
        QTest::qWait(60);
        EXPECT_EQ(jokesInCopies(), 1U) << "copied again before the interval was over";
    }
    EXPECT_EQ(jokesInCopies(), 2U);
}

} // namespace

} // namespace giggle
