// SPDX-License-Identifier: MIT
#include "benchmarks/BaselineDatabase.h"
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"
#include "exchange/format/ExchangeReader.h"
#include "exchange/format/ExchangeWriter.h"
#include "jokes/JokeComposition.h"
#include "ui/AtomicFile.h"
#include "ui/LargeTextModel.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <stdexcept>

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

std::string_view takeUntil(char end, std::string_view& text)
{
    const std::string_view taken = text.substr(0, text.find(end));
    text.remove_prefix(std::min(text.size(), taken.size() + 1));
    return taken;
}

/// Takes the joke lines apart and writes each as a row of its own, without looking whether it is there.
void readPlainly(std::string_view text, BaselineDatabase& database)
{
    RawJoke row{};
    takeUntil('\n', text); // the marker
    for (std::string_view line = takeUntil('\n', text); !line.empty(); line = takeUntil('\n', text)) {
        ++row.oid;
        row.category = takeUntil('^', line);
        row.rating = takeUntil('^', line);
        const std::string_view id = takeUntil('^', line);
        std::from_chars(id.data(), id.data() + id.size(), row.id);
        row.favorite = takeUntil('^', line) == "T";
        row.joke = line;
        database.upsert(row);
    }
    database.sync();
}

/// Both sides begin with an empty collection in every round.
Sides readerSides(Collections& collections, std::size_t size)
{
    const PersistentContainer source = Collections::open(collections.folder(size));
    const std::string text = writeCollection(source.viewContext());
    const auto ours = [&collections, text] {
        AppDelegate appDelegate(collections.emptyFolder());
        (void)appDelegate.persistentContainer().viewContext().fetch(Jokes::fetchRequest());
        ExchangeReader reader(appDelegate, QStringLiteral("jokes.txt"), __FILE__, __LINE__);
        return secondsFor([&] {
            reader.readJokes(text);
            return 0;
        });
    };
    const auto baseline = [&collections, text] {
        const QString folder = collections.emptyFolder();
        (void)Collections::open(folder); // makes the tables
        BaselineDatabase database(Collections::fileIn(folder), BaselineDatabase::Sync::Normal);
        return secondsFor([&] {
            readPlainly(text, database);
            return 0;
        });
    };
    return {ours, baseline};
}

Sides exportSides(Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    return {[folder] { return measuredElsewhere(ScreenMeasurement::Export, folder); },
            [folder] {
                return secondsFor([&] {
                    return BaselineDatabase(Collections::fileIn(folder), BaselineDatabase::Sync::Full)
                        .jokes("ORDER BY category, joke");
                });
            }};
}

/// A new collection with an exchange file beside it.
QString folderWithFile(Collections& collections, const std::string& text)
{
    const QString folder = collections.emptyFolder();
    if (!writeAtomically(folder + QStringLiteral("/jokes.csv"), text).isEmpty())
        throw std::runtime_error("the exchange file cannot be written");
    return folder;
}

Sides importSides(Collections& collections, std::size_t size)
{
    const std::string text = writeCollection(Collections::open(collections.folder(size)).viewContext());
    return {[&collections, text] {
                return measuredElsewhere(ScreenMeasurement::Import, folderWithFile(collections, text));
            },
            readerSides(collections, size).baseline};
}

/// Against the file's size.
Sides memorySides(ScreenMeasurement measurement, Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    const std::string text = writeCollection(Collections::open(folder).viewContext());
    return {[=, &collections] {
                return measuredElsewhere(measurement, measurement == ScreenMeasurement::ExportMemory
                                                          ? folder
                                                          : folderWithFile(collections, text));
            },
            [bytes = double(text.size())] { return bytes; }};
}

std::function<Sides(Collections&, std::size_t)> memoryOf(ScreenMeasurement measurement)
{
    return [measurement](Collections& collections, std::size_t size) {
        return memorySides(measurement, collections, size);
    };
}

/// What the print screen does whenever its list changes, against appending the same texts one by one.
Sides documentSides(Collections& collections, std::size_t size)
{
    const auto container = std::make_shared<PersistentContainer>(Collections::open(collections.folder(size)));
    const auto jokes =
        std::make_shared<const std::vector<Jokes*>>(container->viewContext().fetch(Jokes::fetchRequest()));
    const auto view = std::make_shared<LargeTextModel>();
    return {[container, jokes, view] {
                return secondsFor([&] {
                    const auto document = std::make_shared<JokeComposition>();
                    document->appendHeader();
                    document->appendJokes(*jokes);
                    view->setText(LargeTextModel::Text(document, &document->text()));
                    return document->text().size();
                });
            },
            [container, jokes] {
                const std::string between = '\n' + std::string(34, '-') + "\n\n\n";
                return secondsFor([&] {
                    std::string document;
                    for (const Jokes* joke : *jokes) {
                        document += joke->joke().value_or("");
                        document += between;
                    }
                    return document.size();
                });
            }};
}

} // namespace

std::vector<Figure> exchangeFigures()
{
    return {
        {"print document, compose and show", "append loop", {.largestValue = 0.1}, documentSides},
        {"exchange file, write", "memcpy", {.largestRatio = 10}, writerSides},
        {"exchange file, read", "raw commit for each line", {.largestRatio = 1.0}, readerSides, 7},
        {"export, tap to enabled buttons", "raw ORDER BY", {.largestValue = 0.15}, exportSides, 5},
        {"import, loading and tap to alert",
         "raw commit for each line",
         {.largestRatio = 1.0},
         importSides,
         5},
        {"export, peak memory",
         "size of the file",
         {.largestRatio = 3},
         memoryOf(ScreenMeasurement::ExportMemory),
         3,
         Unit::Bytes},
        {"import, peak memory",
         "size of the file",
         {.largestRatio = 3},
         memoryOf(ScreenMeasurement::ImportMemory),
         3,
         Unit::Bytes},
    };
}

} // namespace giggle
