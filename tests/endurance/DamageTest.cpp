// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include <QByteArrayList>

#include <algorithm>

#include <gmock/gmock.h>

namespace giggle {

namespace {

constexpr qsizetype PageSize = 4096;
constexpr qsizetype LogHeaderSize = 32;
constexpr qsizetype FrameHeaderSize = 24;
constexpr qsizetype FrameSize = FrameHeaderSize + PageSize;

/// Jokes on several pages, one of them on pages of its own, and pages that are free. No flipped bit makes a
/// text hold the "|" that parts the values of a row.
Rows makeCollection(const CollectionFolder& folder)
{
    const PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
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

/// How many values differ between two collections; a great many when their lists have other lengths.
int differingValues(const Rows& before, const Rows& after)
{
    const auto valuesOf = [](const Rows& rows) {
        QByteArrayList values;
        for (const std::string& row : rows)
            values += QByteArray::fromStdString(row).split('|');
        return values;
    };
    const QByteArrayList a = valuesOf(before);
    const QByteArrayList b = valuesOf(after);
    if (before.size() != after.size() || a.size() != b.size())
        return 1000;
    int count = 0;
    for (qsizetype i = 0; i < a.size(); ++i)
        count += a[i] != b[i];
    return count;
}

enum class Opened { Whole, OneValueDiffers, OlderState, Wrong, Refused, RefusedButChanged };

/// Opens what lies in the folder. @p older are states that may be found instead.
Opened open(const CollectionFolder& folder, const Rows& rows, const std::vector<Rows>& older = {})
{
    const auto before = folder.contents();
    try {
        const Rows found = liveRows(folder.open().viewContext());
        if (std::ranges::count(older, found))
            return Opened::OlderState;
        const int differing = differingValues(rows, found);
        return differing == 0 ? Opened::Whole : differing == 1 ? Opened::OneValueDiffers : Opened::Wrong;
    } catch (const StoreError& error) {
        for (const QString& told : {folder.file(), folder.filePath(QStringLiteral("copies"))})
            EXPECT_TRUE(error.localizedDescription().contains(told)) << error.what();
        return folder.contents() == before ? Opened::Refused : Opened::RefusedButChanged;
    }
}

/// Counts outcomes, and fails for those that must not be.
class Outcomes {
public:
    void add(Opened outcome, const std::string& damage)
    {
        ++m_counts[outcome];
        if (outcome == Opened::Wrong || outcome == Opened::RefusedButChanged)
            ADD_FAILURE() << damage << (outcome == Opened::Wrong ? ": wrong lists" : ": refused but changed");
    }

    void report(const char* what)
    {
        int tried = 0;
        for (const auto& [outcome, count] : m_counts)
            tried += count;
        reportCount(what, tried);
        std::printf("  whole %d, refused %d, one value differs %d, without the last save %d\n",
                    m_counts[Opened::Whole], m_counts[Opened::Refused], m_counts[Opened::OneValueDiffers],
                    m_counts[Opened::OlderState]);
    }

    [[nodiscard]] int count(Opened outcome) { return m_counts[outcome]; }

private:
    std::map<Opened, int> m_counts;
};

QByteArray flipped(QByteArray bytes, qsizetype bit)
{
    bytes[bit / 8] = char(bytes[bit / 8] ^ (1 << bit % 8));
    return bytes;
}

/// All bits in a long run; else all of the file's header and some of each page, most of them where a page
/// tells what it holds; and all of the first row of the jokes.
std::vector<qsizetype> bitsToFlip(qsizetype size)
{
    std::vector<qsizetype> bits;
    std::mt19937 random(3);
    for (qsizetype bit = 0; bit < size * 8; ++bit) {
        const qsizetype byte = bit / 8;
        const qsizetype inPage = byte % PageSize;
        const bool isFirstRow = byte / PageSize == 4 && inPage < 120;
        if (isLongRun() || byte < 100 || isFirstRow || random() % (inPage < 120 ? 8 : 256) == 0)
            bits.push_back(bit);
    }
    return bits;
}

TEST(DamageTest, FlippedBitOfTheFileIsRefusedOrChangesNoMoreThanOneValue)
{
    CollectionFolder original;
    const Rows rows = makeCollection(original);
    const QByteArray bytes = readBytes(original.file());
    Outcomes outcomes;
    CollectionFolder folder;
    for (const qsizetype bit : bitsToFlip(bytes.size())) {
        writeBytes(folder.file(), flipped(bytes, bit));
        outcomes.add(open(folder, rows), "bit " + std::to_string(bit));
    }
    outcomes.report("flipped bits of the file");
    EXPECT_GT(outcomes.count(Opened::Refused), 500);
}

TEST(DamageTest, FlippedBitOfTheLogIsRefusedUnlessItLooksLikeASaveThatWasCutShort)
{
    CollectionFolder original;
    std::vector<Rows> states{makeCollection(original)};
    const PersistentContainer container = original.open();
    ManagedObjectContext& context = container.viewContext();
    for (int i = 0; i < 8; ++i) {
        insertJoke(context, {.id = std::int16_t(1000 + i), .joke = std::string(std::size_t(i) * 600, 'm')});
        context.save();
        states.push_back(liveRows(context));
    }
    const CollectionFolder crashed;
    original.copyAsAfterACrash(crashed);
    const QByteArray file = readBytes(crashed.file());
    const QString logSuffix = QStringLiteral("-wal");
    const QByteArray log = readBytes(crashed.file() + logSuffix);
    ASSERT_EQ((log.size() - LogHeaderSize) % FrameSize, 0);
    // The last save is what a power cut may take back; and the one before it, when its end is damaged.
    const std::vector<Rows> older(states.end() - 3, states.end() - 1);
    std::mt19937 random(4);
    Outcomes outcomes;
    for (qsizetype bit = 0; bit < log.size() * 8; ++bit) {
        const qsizetype inFrame = (bit / 8 - LogHeaderSize) % FrameSize;
        const bool isTelling = inFrame < FrameHeaderSize;
        const unsigned oneOf = isLongRun() ? (isTelling ? 1 : 20) : (isTelling ? 4 : 1000);
        if (bit >= LogHeaderSize * 8 && random() % oneOf != 0)
            continue;
        CollectionFolder folder;
        writeBytes(folder.file(), file);
        writeBytes(folder.file() + logSuffix, flipped(log, bit));
        outcomes.add(open(folder, states.back(), older), "bit " + std::to_string(bit) + " of the log");
    }
    outcomes.report("flipped bits of the log");
    EXPECT_EQ(outcomes.count(Opened::OneValueDiffers), 0);
}

TEST(DamageTest, FileThatIsCutOffIsRefused)
{
    CollectionFolder original;
    const Rows rows = makeCollection(original);
    const QByteArray bytes = readBytes(original.file());
    Outcomes outcomes;
    CollectionFolder folder;
    for (qsizetype page = 0; page < bytes.size() / PageSize; ++page)
        for (const qsizetype left : {0, 1, 100, 4095}) {
            const qsizetype size = page * PageSize + left;
            if (size == 0)
                continue; // an empty file is a new collection
            writeBytes(folder.file(), bytes.left(size));
            outcomes.add(open(folder, rows), "cut to " + std::to_string(size));
        }
    outcomes.report("files cut off");
    EXPECT_EQ(outcomes.count(Opened::Whole), 0);
}

} // namespace

} // namespace giggle
