// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeReader.h"
#include "tests/support/CollectionFolder.h"

#include <QDir>

#include <cstdlib>
#include <random>
#include <regex>

#include <gtest/gtest.h>

namespace giggle {

namespace {

// A plain model of docs/exchange-format.md.

struct Row {
    std::optional<QByteArray> category, rating, id, favorite, joke;
};

/// The rows that a file leaves in an empty collection; nothing where reading it would end the program.
struct Model {
    QList<Row> rows;
    bool isWrongFile = false;
    bool endsProgram = false;
};

void assign(std::optional<QByteArray>& value, const QByteArray& field)
{
    if (!field.isEmpty())
        value = field;
}

void updateRow(Row& row, const QList<QByteArray>& fields, const QByteArray& id)
{
    const auto field = [&](qsizetype i) { return fields.value(i).replace('"', ""); };
    assign(row.category, field(0));
    assign(row.rating, field(1));
    if (fields.size() > 2)
        row.id = id;
    if (!field(3).isEmpty())
        row.favorite = field(3) == "F" ? "0" : "1";
    assign(row.joke, field(4).replace("@#@", "\n").replace("~#~", "'"));
}

/// A number as SQL shows it, or nothing.
std::optional<QByteArray> idOf(const QByteArray& field)
{
    static const std::regex form("[+-]?[0-9]+");
    if (!std::regex_match(field.begin(), field.end(), form))
        return std::nullopt;
    const double value = std::strtod(field.constData(), nullptr); // exact as far as it matters
    if (value < -32768 || value > 32767)
        return std::nullopt;
    return QByteArray::number(static_cast<int>(value));
}

Model modelOf(QByteArray document)
{
    Model model;
    const QList<QByteArray> lines = document.replace('\r', '\n').replace('\'', "").split('\n');
    model.isWrongFile = !lines.contains("[GIGGLEARCHIVES]");
    for (const QByteArray& line : lines) {
        if (model.isWrongFile || line == "[CATEGORY]")
            break;
        if (line.isEmpty() || line == "[GIGGLEARCHIVES]")
            continue;
        const QList<QByteArray> fields = line.split('^');
        const auto id = fields.size() > 2 ? idOf(fields[2]) : QByteArray("0");
        if (!id) {
            model.endsProgram = true;
            break;
        }
        QList<Row*> found;
        for (Row& row : model.rows)
            if (row.id == id)
                found += &row;
        if (found.size() > 1)
            continue;
        if (found.isEmpty())
            found += &model.rows.emplaceBack();
        updateRow(*found.first(), fields, *id);
    }
    return model;
}

std::vector<std::string> described(const Model& model)
{
    std::vector<std::string> rows;
    for (const Row& row : model.rows) {
        QByteArray text = QByteArray::number(rows.size() + 1);
        for (const auto& value : {row.category, row.favorite, row.id, row.joke, row.rating})
            text += '|' + value.value_or("NULL");
        rows.push_back(text.toStdString());
    }
    return rows;
}

/// Reads a file and compares what is then in the collection, in memory and on the disk, with the model.
void readAndCompare(const QByteArray& document)
{
    const Model model = modelOf(document);
    if (model.endsProgram)
        return;
    const CollectionFolder folder;
    AppDelegate appDelegate(folder.path());
    ExchangeReader reader(appDelegate, QStringLiteral("file"), "tests", 1);
    reader.readJokes({document.data(), std::size_t(document.size())});
    EXPECT_EQ(reader.wrongFile(), model.isWrongFile);
    EXPECT_EQ(liveRows(appDelegate.persistentContainer().viewContext()), described(model));
    EXPECT_EQ(storedRows(folder.file()), described(model));
}

/// What the format is made of.
const QList<QByteArray> Pieces =
    QByteArray(
        "\n|\r|\r\n|\n[GIGGLEARCHIVES]\n|\n[CATEGORY]\n|\n[RATING]\n|\nDad^Mild^1^T^a|\n^^2^F^|^|^^|'|\"|"
        "@#@|~#~|@|#|~| |F|T|0|-1|+5|32767|-32768|\xC3\xA9")
        .split('|') +
    QByteArrayList{QByteArray(1, '\0')};

TEST(ExchangeReaderFuzz, RandomFilesLeaveWhatTheFormatSays)
{
    QList<QByteArray> corpus;
    for (const QFileInfo& file :
         QDir(QStringLiteral(GIGGLE_SOURCE_DIR "/tests/fuzz/corpus")).entryInfoList(QDir::Files))
        corpus += readBytes(file.filePath());
    std::mt19937 random(1);
    const auto below = [&](qsizetype limit) {
        return std::uniform_int_distribution<qsizetype>(0, limit - 1)(random);
    };
    const auto any = [&](const QList<QByteArray>& texts) { return texts[below(texts.size())]; };
    for (int run = 0; run < 2000; ++run) {
        QByteArray document = any(corpus);
        for (qsizetype changes = below(7); changes > 0; --changes) {
            const QByteArray other = any(corpus);
            document.replace(below(document.size() + 1), below(8),
                             below(2) ? any(Pieces) : other.mid(below(other.size() + 1), below(40)));
        }
        if (!QByteArrayView(document).isValidUtf8())
            continue; // such a file is never read
        readAndCompare(document);
        ASSERT_FALSE(HasFailure()) << document.toStdString();
    }
}

} // namespace

} // namespace giggle
