// SPDX-License-Identifier: MIT
#include "app/DailyCopying.h"

#include "store/AppDelegate.h"
#include "tests/support/CollectionFolder.h"

#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace std::chrono_literals;

void addJoke(AppDelegate& appDelegate, std::int16_t id)
{
    insertJoke(appDelegate.persistentContainer().viewContext(), {.id = id, .joke = "Boo"});
    appDelegate.saveContext();
}

TEST(DailyCopying, CopiesWhenItIsQuietAndWhatIsLeftAtTheEnd)
{
    const CollectionFolder folder;
    AppDelegate appDelegate(folder.path());
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
        addJoke(appDelegate, 1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return jokesInCopies() == 1; }));
        addJoke(appDelegate, 2);
        QTest::qWait(60);
        EXPECT_EQ(jokesInCopies(), 1U) << "copied again before the interval was over";
    }
    EXPECT_EQ(jokesInCopies(), 2U);
}

} // namespace

} // namespace giggle
