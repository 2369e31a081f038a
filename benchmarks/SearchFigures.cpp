// SPDX-License-Identifier: MIT
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"
#include "store/TextSearch.h"

#include <memory>
#include <stdexcept>

namespace giggle {

namespace {

/// The joke list as the search gets it, with its texts once more for the baseline.
struct SearchedList {
    explicit SearchedList(const QString& folder) : container(Collections::open(folder))
    {
        ManagedObjectContext& context = container.viewContext();
        jokes = context.fetch(FetchRequest<Jokes>{{}, {{"category"}, {"joke"}}});
        texts.reserve(jokes.size());
        for (const Jokes* joke : jokes)
            texts.push_back(QString::fromStdString(std::string(joke->joke().value_or(""))));
        for (std::optional<std::size_t> next = 0; next;)
            next = TextSearch::prepare(context, *next, 1000);
    }

    PersistentContainer container;
    std::vector<Jokes*> jokes;
    std::vector<QString> texts;
};

/// The needle is typed letter by letter, as often as it takes for a steady figure.
double secondsPerKeystroke(const SearchedList& list, const QString& needle)
{
    constexpr qsizetype AtLeast = 9;
    double seconds = 0;
    qsizetype keystrokes = 0;
    while (keystrokes < AtLeast)
        for (qsizetype length = 1; length <= needle.size(); ++length, ++keystrokes)
            seconds += secondsFor(
                [&] { return TextSearch(needle.first(length)).filter(list.jokes, Attribute::joke); });
    return seconds / static_cast<double>(keystrokes);
}

Sides searchSides(const QString& needle, ForeignShare share, Collections& collections, std::size_t size)
{
    const auto list = std::make_shared<SearchedList>(collections.folder(size, share));
    const auto ours = [list, needle] { return TextSearch(needle).filter(list->jokes, Attribute::joke); };
    const auto baseline = [list, needle] {
        std::vector<Jokes*> found;
        const QString lowered = needle.toLower();
        for (std::size_t i = 0; i < list->jokes.size(); ++i)
            if (list->texts[i].toLower().contains(lowered))
                found.push_back(list->jokes[i]);
        return found;
    };
    if (ours() != baseline())
        throw std::logic_error("both sides of a search must find the same jokes");
    return {[list, needle] { return secondsPerKeystroke(*list, needle); },
            [baseline] { return secondsFor(baseline); }};
}

struct Search {
    const char* name;
    const char* needle;
    ForeignShare share;
};

constexpr Search Searches[]{
    {"hits", "Chicken", ForeignShare::None},
    {"rare hits", "genie reboot cheese", ForeignShare::None},
    {"miss", "submarine", ForeignShare::None},
    {"miss of frequent letters", "e three elephants to me", ForeignShare::None},
    {"one letter", "E", ForeignShare::None},
    {"non-ASCII, hits", "Курица", ForeignShare::All},
    {"non-ASCII, rare hits", "слон попугай ёжик", ForeignShare::All},
    {"non-ASCII, miss", "подводная", ForeignShare::All},
    {"non-ASCII, miss of frequent letters", "окно", ForeignShare::All},
    {"non-ASCII, one letter", "О", ForeignShare::All},
};

} // namespace

std::vector<Figure> searchFigures()
{
    std::vector<Figure> figures;
    for (const Search& search : Searches)
        figures.push_back({std::string("search, ") + search.name,
                           "QString::toLower",
                           {.largestValue = 5e-3},
                           [search](Collections& collections, std::size_t size) {
                               return searchSides(QString::fromUtf8(search.needle), search.share, collections,
                                                  size);
                           }});
    return figures;
}

} // namespace giggle
