// SPDX-License-Identifier: MIT
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"
#include "benchmarks/RawDatabase.h"
#include "exchange/format/ExchangeReader.h"
#include "exchange/format/ExchangeWriter.h"

#include <cstring>
#include <memory>

namespace giggle {

namespace {

Sides writerSides(Collections& collections, std::size_t size)
{
    const auto container = std::make_shared<PersistentContainer>(Collections::open(collections.folder(size)));
    const auto text = std::make_shared<const std::string>(writeCollection(container->viewContext()));
    // Its pages are in memory already, which makes the copy as cheap as it can be.
    const auto copy = std::make_shared<std::string>(text->size(), '\0');
    return {[container] { return secondsFor([&] { return writeCollection(container->viewContext()); }); },
            [text, copy] {
                return secondsFor([&] { return std::memcpy(copy->data(), text->data(), text->size()); });
            }};
}

/// Both sides begin with an empty collection in every round.
Sides readerSides(Collections& collections, std::size_t size)
{
    PersistentContainer source = Collections::open(collections.folder(size));
    const std::string text = writeCollection(source.viewContext());
    RawDatabase raw(Collections::fileIn(collections.folder(size)), RawDatabase::Sync::Full);
    std::vector<RawJoke> rows = raw.jokes("ORDER BY category, joke");
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].oid = static_cast<std::int64_t>(i) + 1;

    const auto ours = [&collections, text] {
        AppDelegate appDelegate(collections.emptyFolder());
        (void)appDelegate.persistentContainer().viewContext().fetch(Jokes::fetchRequest());
        ExchangeReader reader(appDelegate, QStringLiteral("jokes.txt"), __FILE__, __LINE__);
        return secondsFor([&] {
            reader.readJokes(text);
            return 0;
        });
    };
    const auto baseline = [&collections, rows = std::move(rows)] {
        const QString folder = collections.emptyFolder();
        (void)Collections::open(folder); // makes the tables
        RawDatabase database(Collections::fileIn(folder), RawDatabase::Sync::Normal);
        return secondsFor([&] {
            for (const RawJoke& row : rows)
                database.upsert(row);
            database.sync();
            return 0;
        });
    };
    return {ours, baseline};
}

} // namespace

std::vector<Figure> exchangeFigures()
{
    return {
        {"exchange file, write", "memcpy", {.largestRatio = 10}, writerSides},
        {"exchange file, read", "raw commits, normal sync", {.largestRatio = 1.1}, readerSides, 3},
    };
}

} // namespace giggle
