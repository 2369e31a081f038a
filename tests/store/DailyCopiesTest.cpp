// SPDX-License-Identifier: MIT
#include "store/DailyCopies.h"

#include "store/ManagedObjectContext.h"
#include "tests/support/CollectionFolder.h"

#include <QDir>

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

constexpr DailyCopies::Limits Small{.copies = 3, .totalBytes = 64LL << 20, .freeBytes = 0};

class DailyCopiesTest : public testing::Test {
protected:
    DailyCopiesTest()
    {
        insertJoke(context(), {.id = 1, .joke = "Boo"});
        context().save();
    }

    ManagedObjectContext& context() { return m_container.viewContext(); }

    /// On that day of a month.
    void make(int day, DailyCopies::Limits limits = Small)
    {
        DailyCopies(m_folder.file(), limits).make({2026, 11, day});
    }

    QStringList files() { return QDir(copyPath()).entryList(QDir::Files, QDir::Name); }

    QString copyPath(const QString& name = {}) { return m_folder.filePath(u"copies/"_s + name); }

    CollectionFolder m_folder;
    PersistentContainer m_container = m_folder.open();
};

TEST_F(DailyCopiesTest, ACopyHoldsAllThatIsSavedAndOpensAsACollection)
{
    make(1);
    insertJoke(context(), {.id = 2, .joke = "Moo"});
    context().save();
    insertJoke(context(), {.id = 3, .joke = "not saved"});
    make(1);
    ASSERT_EQ(files(), QStringList{u"Giggle_Archives 2026-11-01.sqlite"_s});
    EXPECT_EQ(storedRows(copyPath(files().front())), storedRows(m_folder.file()));

    const CollectionFolder other;
    ASSERT_TRUE(QFile::copy(copyPath(files().front()), other.file()));
    EXPECT_EQ(liveRows(other.open().viewContext()).size(), 2U);
}

TEST_F(DailyCopiesTest, TheOldestGoEvenWhenTheClockWasSetBack)
{
    for (const int number : {20, 21, 22, 23, 5}) {
        make(number);
        std::this_thread::sleep_for(std::chrono::milliseconds(10)); // so that the files' times differ
    }
    writeBytes(copyPath(u"Giggle_Archives my-own-one.sqlite"_s), "of the user");
    writeBytes(copyPath(u"Giggle_Archives 2026-11-20.sqlite.part"_s), "left by a killed program");
    make(6);
    EXPECT_EQ(files(),
              (QStringList{u"Giggle_Archives 2026-11-05.sqlite"_s, u"Giggle_Archives 2026-11-06.sqlite"_s,
                           u"Giggle_Archives 2026-11-23.sqlite"_s, u"Giggle_Archives my-own-one.sqlite"_s}));
}

TEST_F(DailyCopiesTest, LimitsOfSizeHold)
{
    make(1);
    const qint64 size = QFileInfo(copyPath(files().front())).size();
    make(2, {.copies = 3, .totalBytes = 8 * size, .freeBytes = 1LL << 60});
    EXPECT_EQ(files().size(), 1) << "made although it leaves too little room";
    make(2, {.copies = 3, .totalBytes = size / 2, .freeBytes = 0});
    EXPECT_EQ(files().size(), 1) << "made although it is larger than all copies may be";
    // The log counts, too: there has to be room for all that it may hold.
    context().store().database().execute("PRAGMA wal_checkpoint(TRUNCATE)");
    make(2, {.copies = 3, .totalBytes = 2 * size - 1, .freeBytes = 0});
    EXPECT_EQ(files(), QStringList{u"Giggle_Archives 2026-11-02.sqlite"_s});
}

TEST_F(DailyCopiesTest, AFailureLeavesOlderCopiesAndNothingHalfMade)
{
    make(1);
    const std::vector<std::string> rows = storedRows(copyPath(files().front()));
    ASSERT_TRUE(QDir().mkpath(copyPath(u"Giggle_Archives 2026-11-02.sqlite"_s)));
    EXPECT_THROW(make(2), StoreError);
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(storedRows(copyPath(files().front())), rows);
}

TEST_F(DailyCopiesTest, ADamagedOrLostCollectionTakesNoCopysPlace)
{
    for (int i = 2; i < 300; ++i)
        insertJoke(context(), {.category = "Puns", .joke = "A joke that fills a page"});
    context().save();
    make(1);
    closeContainer(m_container);
    QByteArray bytes = readBytes(m_folder.file());
    bytes.replace(bytes.size() - 4096, 64, QByteArray(64, '\xff'));
    writeBytes(m_folder.file(), bytes);
    EXPECT_THROW(make(1), StoreError);
    ASSERT_TRUE(QFile::remove(m_folder.file()));
    EXPECT_THROW(make(1), StoreError);
    EXPECT_FALSE(QFile::exists(m_folder.file()));
    writeBytes(m_folder.file(), {});
    EXPECT_THROW(make(1), StoreError);
    EXPECT_EQ(storedRows(copyPath(files().front())).size(), 299U);
}

} // namespace

} // namespace giggle
