// SPDX-License-Identifier: MIT
// Reads arbitrary exchange files and compares what is then in the collection, in memory and on the disk, with
// what a plain model of docs/exchange-format.md makes of them.
#include "exchange/format/ExchangeReader.h"
#include "tests/support/CollectionFolder.h"

#include <QByteArrayView>
#include <QList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <regex>

namespace giggle {

namespace {

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

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "exchange file: %s\n", what);
    std::abort();
}

} // namespace

} // namespace giggle

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace giggle;
    const QByteArray document(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!QByteArrayView(document).isValidUtf8())
        return 0; // such a file is never read
    const Model model = modelOf(document);
    if (model.endsProgram)
        return 0;
    const CollectionFolder folder;
    AppDelegate appDelegate(folder.path());
    ExchangeReader reader(appDelegate, QStringLiteral("file"), "tests", 1);
    reader.readJokes({document.data(), size});
    require(reader.wrongFile() == model.isWrongFile, "marker found or missed");
    require(liveRows(appDelegate.persistentContainer().viewContext()) == described(model),
            "other jokes than the format says");
    require(storedRows(folder.file()) == described(model), "other jokes on the disk");
    return 0;
}
