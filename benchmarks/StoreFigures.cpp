// SPDX-License-Identifier: MIT
#include "benchmarks/BaselineDatabase.h"
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <stdexcept>

namespace giggle {

namespace {

/// A context that is open as long as the sides of a figure live, beside a raw connection to the same file.
struct OpenCollection {
    explicit OpenCollection(const QString& folder)
        : container(Collections::open(folder)), raw(Collections::fileIn(folder), BaselineDatabase::Sync::Full)
    {
        Collections::materialise(container);
    }

    ManagedObjectContext& context() const { return container.viewContext(); }

    PersistentContainer container;
    BaselineDatabase raw;
};

Sides openSides(Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    const auto ours = [folder] {
        PersistentContainer container = Collections::open(folder);
        Collections::materialise(container);
        return container;
    };
    const auto baseline = [folder] {
        auto raw =
            std::make_unique<BaselineDatabase>(Collections::fileIn(folder), BaselineDatabase::Sync::Full);
        benchmark::DoNotOptimize(raw->scan());
        return raw;
    };
    return {[ours] { return secondsFor(ours); }, [baseline] { return secondsFor(baseline); }};
}

struct ListOrder {
    const char* name;
    FetchRequest<Jokes> request;
    const char* clauses;
};

std::vector<ListOrder> listOrders()
{
    return {
        {"category", {{}, {{"category"}, {"joke"}}}, "ORDER BY category, joke"},
        {"rating", {{}, {{"rating"}, {"joke"}}}, "ORDER BY rating, joke"},
        {"joke", {{}, {{"joke"}, {"category"}}}, "ORDER BY joke, category"},
        {"favorites",
         {Predicate<Jokes>("favorite == %i", 1), {{"category"}, {"joke"}}},
         "WHERE favorite = 1 ORDER BY category, joke"},
    };
}

/// Before each round the texts of some jokes change.
Sides sortSides(const ListOrder& order, std::size_t changes, Collections& collections, std::size_t size)
{
    const auto open = std::make_shared<OpenCollection>(collections.folder(size));
    const std::vector<Jokes*> jokes = open->context().fetch(Jokes::fetchRequest());
    if (!std::ranges::equal(open->context().fetch(order.request), open->raw.jokes(order.clauses), {},
                            &Jokes::oid, &RawJoke::oid))
        throw std::logic_error("both sides of a sort must yield the same order");
    const auto ours = [open, order, changes, jokes, count = std::size_t(0)]() mutable {
        for (std::size_t i = 0; i < changes; ++i) {
            ++count;
            jokes[count * 7919 % jokes.size()]->setJoke("Why did the list change? " + std::to_string(count));
        }
        return secondsFor([&] { return open->context().fetch(order.request); });
    };
    return {ours, [open, order] { return secondsFor([&] { return open->raw.jokes(order.clauses); }); }};
}

/// The same work in the smallest collection is the baseline of what must not depend on the size.
template <class Work>
Sides independentSides(Collections& collections, std::size_t size, const Work& work)
{
    constexpr std::size_t SmallestSize = 1000;
    constexpr std::size_t Repeats = 20'000; // one is too short for the clock
    const auto side = [&](std::size_t sideSize) {
        const auto open = std::make_shared<OpenCollection>(collections.folder(sideSize));
        const std::vector<Jokes*> jokes = open->context().fetch(Jokes::fetchRequest());
        return [=] {
            return secondsFor([&] {
                       std::size_t result = 0;
                       for (std::size_t i = 0; i < Repeats; ++i)
                           result +=
                               work(open->context(), *jokes[i % SmallestSize * jokes.size() / SmallestSize]);
                       return result;
                   }) /
                   Repeats;
        };
    };
    return {side(size), side(SmallestSize)};
}

Sides nextIdSides(Collections& collections, std::size_t size)
{
    return independentSides(collections, size, [](ManagedObjectContext& context, const Jokes&) {
        return static_cast<std::size_t>(context.highestJokeId().value_or(0));
    });
}

Sides lookupSides(Collections& collections, std::size_t size)
{
    return independentSides(collections, size, [](ManagedObjectContext& context, const Jokes& joke) {
        FetchRequest<Jokes> request = Jokes::fetchRequest();
        request.predicate = Predicate<Jokes>("id == %i", *joke.id());
        return context.fetch(request).size();
    });
}

Sides saveSides(Collections& collections, std::size_t size)
{
    const auto open = std::make_shared<OpenCollection>(collections.copy(size));
    const auto raw = std::make_shared<BaselineDatabase>(Collections::fileIn(collections.copy(size)),
                                                        BaselineDatabase::Sync::Full);
    const std::vector<Jokes*> jokes = open->context().fetch(Jokes::fetchRequest());
    const auto ours = [open, jokes, change = std::size_t(0)]() mutable {
        Jokes& joke = *jokes[++change * 7919 % jokes.size()];
        return secondsFor([&] {
            joke.setFavorite(!joke.favorite().value_or(false));
            open->context().save();
            return 0;
        });
    };
    const auto baseline = [raw, rows = raw->jokes("ORDER BY oid"), change = std::size_t(0)]() mutable {
        RawJoke& row = rows[++change * 7919 % rows.size()];
        return secondsFor([&] {
            row.favorite = 1 - row.favorite;
            raw->upsert(row);
            return 0;
        });
    };
    return {ours, baseline};
}

/// A process of its own, whose memory nothing else has used before, opens the collection.
Sides memorySides(Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    const auto ours = [folder] {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--resident"), folder});
        process.waitForFinished();
        bool isNumber = false;
        const double bytes = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
        if (!isNumber)
            throw std::runtime_error("the process that measures the memory failed");
        return bytes;
    };
    return {ours, [folder] {
                return static_cast<double>(
                    BaselineDatabase(Collections::fileIn(folder), BaselineDatabase::Sync::Full).scan());
            }};
}

} // namespace

std::vector<Figure> storeFigures()
{
    std::vector<Figure> figures{
        {"open and materialise", "raw scan", {.largestRatio = 2.5}, openSides},
        {"next id", "1,000 jokes", {.largestRatio = 1.5}, nextIdSides},
        {"lookup by id", "1,000 jokes", {.largestRatio = 1.5}, lookupSides},
        {"save of one joke", "raw upsert, full sync", {.largestRatio = 1.1}, saveSides, 101},
        {"resident memory", "bytes of all values", {}, memorySides, 3, Unit::Bytes},
    };
    const auto addSort = [&](const char* name, const ListOrder& order, std::size_t changes,
                             const Goal& goal) {
        figures.push_back({std::string(name) + order.name, "raw ORDER BY", goal,
                           [=](Collections& collections, std::size_t size) {
                               return sortSides(order, changes, collections, size);
                           }});
    };
    for (const ListOrder& order : listOrders()) {
        addSort("sort after a change, ", order, 1, {.largestRatio = 1.0 / 8});
        addSort("sort again, ", order, 0, {.largestValue = 1e-3});
    }
    addSort("sort after 1,000 changes, ", listOrders().front(), 1000, {});
    return figures;
}

} // namespace giggle
