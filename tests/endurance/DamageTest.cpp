// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include <QByteArrayList>

#include <algorithm>
#include <functional>
#include <numeric>

#include <gtest/gtest.h>

namespace giggle {

namespace {

constexpr qsizetype PageSize = 4096;
constexpr qsizetype LogHeaderSize = 32;
constexpr qsizetype FrameHeaderSize = 24;
constexpr qsizetype FrameSize = FrameHeaderSize + PageSize;

/// Jokes on several pages, one of them on pages of its own, and pages that are free. No flipped bit makes a
/// text hold the "|" that parts the values of a row.
Rows fillCollection(ManagedObjectContext& context)
{
    for (int i = 0; i < 60; ++i)
        insertJoke(context, {.category = i % 3 ? OptionalText("Puns") : std::nullopt,
                             .rating = i % 5 ? OptionalText("Mad") : std::nullopt,
                             .id = std::int16_t(i * 7),
                             .favorite = i % 2 == 0,
                             .joke = std::string(150, char('a' + i % 8))});
    insertJoke(context, {.id = 500, .joke = std::string(9000, 'y')});
    Jokes& deleted = insertJoke(context, {.joke = std::string(20'000, 'z')});
    for (const char* name : {"Puns", "Corny", "Dad"}) {
        insertCategory(context, name);
        insertRating(context, name);
    }
    context.save();
    context.deleteObject(deleted);
    context.save();
    return liveRows(context);
}

QByteArrayList valuesOf(const Rows& rows)
{
    QByteArrayList values;
    for (const std::string& row : rows)
        values += QByteArray::fromStdString(row).split('|');
    return values;
}

enum class Opened { Whole, OneValueDiffers, Refused };

/// Opens what lies in the folder: it has to be there whole but for one value, or refused in words and left as
/// it is. One of the @p older states counts as whole, too.
Opened open(const CollectionFolder& folder, const Rows& rows, const std::vector<Rows>& older = {})
{
    const auto before = folder.contents();
    try {
        const Rows found = liveRows(folder.open().viewContext());
        if (std::ranges::count(older, found))
            return Opened::Whole;
        const QByteArrayList a = valuesOf(rows);
        const QByteArrayList b = valuesOf(found);
        const bool areAsMany = found.size() == rows.size() && a.size() == b.size();
        EXPECT_TRUE(areAsMany && std::inner_product(a.begin(), a.end(), b.begin(), 0, std::plus(),
                                                    std::not_equal_to()) <= 1)
            << "wrong lists";
        return a == b ? Opened::Whole : Opened::OneValueDiffers;
    } catch (const StoreError& error) {
        for (const QString& told : {folder.file(), folder.filePath(QStringLiteral("copies"))})
            EXPECT_TRUE(error.localizedDescription().contains(told)) << error.what();
        EXPECT_TRUE(folder.contents() == before) << "refused but changed";
        return Opened::Refused;
    }
}

QByteArray flipped(QByteArray bytes, qsizetype bit)
{
    bytes[bit / 8] = char(bytes[bit / 8] ^ (1 << bit % 8));
    return bytes;
}

/// All bits in a long run; else all of the file's header and some of each page, most of them where a page
/// tells what it holds; and all of the first row of the jokes.
bool isToBeFlipped(qsizetype bit, std::mt19937& random)
{
    const qsizetype byte = bit / 8;
    const qsizetype inPage = byte % PageSize;
    const bool isFirstRow = byte / PageSize == 4 && inPage < 120;
    return isLongRun() || byte < 100 || isFirstRow || random() % (inPage < 120 ? 8 : 256) == 0;
}

class DamageTest : public testing::Test {
protected:
    CollectionFolder original;
    const Rows rows = fillCollection(original.open().viewContext());
    const QByteArray bytes = readBytes(original.file());
    CollectionFolder folder; ///< for what is damaged
    std::mt19937 random{3};
    int tried = 0;
};

TEST_F(DamageTest, FlippedBitOfTheFileIsRefusedOrChangesNoMoreThanOneValue)
{
    int refused = 0;
    for (qsizetype bit = 0; bit < bytes.size() * 8; ++bit) {
        if (!isToBeFlipped(bit, random))
            continue;
        SCOPED_TRACE(bit);
        writeBytes(folder.file(), flipped(bytes, bit));
        refused += open(folder, rows) == Opened::Refused;
        ++tried;
    }
    reportCount("flipped bits of the file", tried);
    EXPECT_GT(refused, 500);
}

TEST_F(DamageTest, FlippedBitOfTheLogIsRefusedUnlessItLooksLikeASaveThatWasCutShort)
{
    std::vector<Rows> states{rows};
    const PersistentContainer container = original.open();
    ManagedObjectContext& context = container.viewContext();
    for (int i = 0; i < 8; ++i) {
        insertJoke(context, {.id = std::int16_t(1000 + i), .joke = std::string(std::size_t(i) * 600, 'm')});
        context.save();
        states.push_back(liveRows(context));
    }
    const CollectionFolder crashed;
    original.copyAsAfterACrash(crashed);
    const QString logSuffix = QStringLiteral("-wal");
    const QByteArray log = readBytes(crashed.file() + logSuffix);
    ASSERT_EQ((log.size() - LogHeaderSize) % FrameSize, 0);
    // The last save is what a power cut may take back; and the one before it, when its end is damaged.
    const std::vector<Rows> older(states.end() - 3, states.end() - 1);
    for (qsizetype bit = 0; bit < log.size() * 8; ++bit) {
        const qsizetype inFrame = (bit / 8 - LogHeaderSize) % FrameSize;
        const bool isTelling = inFrame < FrameHeaderSize;
        const unsigned oneOf = isLongRun() ? (isTelling ? 1 : 20) : (isTelling ? 4 : 1000);
        if (bit >= LogHeaderSize * 8 && random() % oneOf != 0)
            continue;
        SCOPED_TRACE(bit);
        CollectionFolder damaged;
        writeBytes(damaged.file(), bytes);
        writeBytes(damaged.file() + logSuffix, flipped(log, bit));
        EXPECT_NE(open(damaged, states.back(), older), Opened::OneValueDiffers);
        ++tried;
    }
    reportCount("flipped bits of the log", tried);
}

TEST_F(DamageTest, FileThatIsCutOffIsRefused)
{
    for (qsizetype page = 0; page < bytes.size(); page += PageSize)
        for (const qsizetype size : {page, page + 1, page + 100, page + PageSize - 1}) {
            if (size == 0)
                continue; // an empty file is a new collection
            writeBytes(folder.file(), bytes.left(size));
            EXPECT_EQ(open(folder, rows), Opened::Refused) << "cut to " << size;
            ++tried;
        }
    reportCount("files cut off", tried);
}

} // namespace

} // namespace giggle
