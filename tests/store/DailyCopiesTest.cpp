// SPDX-License-Identifier: MIT
#include "store/DailyCopies.h"

#include "store/ManagedObjectContext.h"
#include "tests/support/CollectionFolder.h"

#include <QDir>

#include <chrono>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

constexpr DailyCopies::Limits Small{.copies = 3, .totalBytes = 64LL << 20, .freeBytes = 0};

class DailyCopiesTest : public testing::Test {
protected:
    void SetUp() override
    {
        insertJoke(context(), {.id = 1, .joke = "Boo"});
        context().save();
    }

    ManagedObjectContext& context() { return m_container.viewContext(); }

    void make(const QDate& day, DailyCopies::Limits limits = Small)
    {
        DailyCopies(m_folder.file(), limits).make(day);
    }

    QStringList files() { return QDir(copyPath()).entryList(QDir::Files, QDir::Name); }

    QString copyPath(const QString& name = {}) { return m_folder.filePath(u"copies/"_s + name); }

    CollectionFolder m_folder;
    PersistentContainer m_container = m_folder.open();
};

QDate day(int number)
{
    return {2026, 11, number};
}

TEST_F(DailyCopiesTest, ACopyHoldsAllThatIsSavedAndOpensAsACollection)
{
    make(day(1));
    insertJoke(context(), {.id = 2, .joke = "Moo"});
    context().save();
    insertJoke(context(), {.id = 3, .joke = "not saved"});
    make(day(1));
    ASSERT_EQ(files(), QStringList{u"Giggle_Archives 2026-11-01.sqlite"_s});
    EXPECT_EQ(storedRows(copyPath(files().front())), storedRows(m_folder.file()));

    const CollectionFolder other;
    ASSERT_TRUE(QFile::copy(copyPath(files().front()), other.file()));
    EXPECT_EQ(liveRows(other.open().viewContext()).size(), 2U);
}

TEST_F(DailyCopiesTest, TheOldestGoEvenWhenTheClockWasSetBack)
{
    for (const int number : {20, 21, 22, 23, 5}) {
        make(day(number));
        std::this_thread::sleep_for(std::chrono::milliseconds(10)); // so that the files' times differ
    }
    writeBytes(copyPath(u"Giggle_Archives my-own-one.sqlite"_s), "of the user");
    writeBytes(copyPath(u"Giggle_Archives 2026-11-20.sqlite.part"_s), "left by a killed program");
    make(day(6));
    EXPECT_EQ(files(),
              (QStringList{u"Giggle_Archives 2026-11-05.sqlite"_s, u"Giggle_Archives 2026-11-06.sqlite"_s,
                           u"Giggle_Archives 2026-11-23.sqlite"_s, u"Giggle_Archives my-own-one.sqlite"_s}));
}

TEST_F(DailyCopiesTest, LimitsOfSizeHold)
{
    make(day(1));
    const qint64 size = QFileInfo(copyPath(files().front())).size();
    make(day(2), {.copies = 3, .totalBytes = 8 * size, .freeBytes = 1LL << 60});
    EXPECT_EQ(files().size(), 1) << "made although it leaves too little room";
    make(day(2), {.copies = 3, .totalBytes = size / 2, .freeBytes = 0});
    EXPECT_EQ(files().size(), 1) << "made although it is larger than all copies may be";
    // The log counts, too: there has to be room for all that it may hold.
    context().store().database().execute("PRAGMA wal_checkpoint(TRUNCATE)");
    make(day(2), {.copies = 3, .totalBytes = 2 * size - 1, .freeBytes = 0});
    EXPECT_EQ(files(), QStringList{u"Giggle_Archives 2026-11-02.sqlite"_s});
}

TEST_F(DailyCopiesTest, AFailureLeavesOlderCopiesAndNothingHalfMade)
{
    make(day(1));
    writeBytes(copyPath(u"Giggle_Archives 2026-11-01.sqlite.part"_s), "left by a killed program");
    make(day(1));
    EXPECT_EQ(files().size(), 1);

    const std::vector<std::string> rows = storedRows(copyPath(files().front()));
    ASSERT_TRUE(QDir().mkpath(copyPath(u"Giggle_Archives 2026-11-02.sqlite"_s)));
    EXPECT_THROW(make(day(2)), StoreError);
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(storedRows(copyPath(files().front())), rows);
}

TEST_F(DailyCopiesTest, ADamagedOrLostCollectionTakesNoCopysPlace)
{
    for (std::int16_t id = 2; id < 300; ++id)
        insertJoke(context(), {.category = "Puns", .id = id, .joke = "A joke that fills a page"});
    context().save();
    make(day(1));
    closeContainer(m_container);
    QByteArray bytes = readBytes(m_folder.file());
    bytes.replace(bytes.size() - 4096, 64, QByteArray(64, '\xff'));
    writeBytes(m_folder.file(), bytes);
    EXPECT_THROW(make(day(1)), StoreError);
    ASSERT_TRUE(QFile::remove(m_folder.file()));
    EXPECT_THROW(make(day(1)), StoreError);
    EXPECT_FALSE(QFile::exists(m_folder.file()));
    writeBytes(m_folder.file(), {});
    EXPECT_THROW(make(day(1)), StoreError);
    EXPECT_EQ(storedRows(copyPath(files().front())).size(), 299U);
}

} // namespace

} // namespace giggle
