// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"

#include "store/ManagedObjectContext.h"

#include <algorithm>
#include <unordered_map>

namespace giggle {

namespace {

std::string lowered(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .toLower()
        .toUtf8()
        .toStdString();
}

/// The beginnings of jokes from all over the collection: enough to tell which bytes are rare in it.
std::string sampleOf(const std::deque<Jokes>& jokes)
{
    constexpr std::size_t Count = 64;
    constexpr std::size_t Size = 256;
    std::string sample;
    for (std::size_t i = 0; i < jokes.size(); i += jokes.size() / Count + 1)
        sample += jokes[i].joke().value_or("").substr(0, Size);
    return sample;
}

/// Has memory read ahead of its use, as jokes and their texts lie at places that the processor cannot guess.
void prefetch(const void* start, std::size_t size)
{
    constexpr std::size_t CacheLine = 64;
    for (std::size_t offset = 0; offset < size; offset += CacheLine)
        __builtin_prefetch(static_cast<const char*>(start) + offset);
}

} // namespace

bool TextSearch::isContainedIn(std::string_view text) const
{
    return m_scan.findsIn(isAscii(text) ? text : lowered(text));
}

std::vector<Jokes*> TextSearch::filter(const std::vector<Jokes*>& source, Attribute attribute) const
{
    return attribute == Attribute::joke ? filterByJoke(source) : filterByName(source, attribute);
}

std::vector<Jokes*> TextSearch::filterByName(const std::vector<Jokes*>& source, Attribute attribute) const
{
    std::vector<Jokes*> found;
    std::unordered_map<const char*, bool> verdicts; // names are interned: one verdict for each
    for (Jokes* joke : source) {
        const OptionalText name = joke->text(attribute);
        if (!name)
            continue;
        const auto [verdict, isNew] = verdicts.try_emplace(name->data(), false);
        if (isNew)
            verdict->second = isContainedIn(*name);
        if (verdict->second)
            found.push_back(joke);
    }
    return found;
}

std::vector<Jokes*> TextSearch::filterByJoke(const std::vector<Jokes*>& source) const
{
    std::vector<Jokes*> found;
    if (source.empty())
        return found;
    const std::deque<Jokes>& resident = source.front()->context().residentJokes();
    const ByteScan scan(m_scan.needle(), sampleOf(resident));
    if (source.size() < resident.size() / 8) {
        std::ranges::copy_if(source, std::back_inserter(found),
                             [&](const Jokes* joke) { return scan.findsIn(foldedJoke(*joke)); });
        return found;
    }
    // Texts lie in memory in the order of insertion: read in that order they are read several times faster
    // than in the order of the list.
    constexpr std::size_t Ahead = 6;
    constexpr std::size_t UsualSize = 384;
    std::vector<char> isHit(resident.size());
    for (std::size_t i = 0; i < resident.size(); ++i) {
        if (i + 2 * Ahead < resident.size())
            prefetch(&resident[i + 2 * Ahead], sizeof(Jokes));
        if (i + Ahead < resident.size())
            prefetch(foldedJoke(resident[i + Ahead]).data(), UsualSize);
        isHit[i] = scan.findsIn(foldedJoke(resident[i]));
    }
    std::ranges::copy_if(source, std::back_inserter(found),
                         [&](const Jokes* joke) { return isHit[joke->position()] != 0; });
    return found;
}

/// What is searched of a joke. An unset text holds as little as an empty one.
std::string_view TextSearch::foldedJoke(const Jokes& joke)
{
    fold(joke);
    return joke.m_folding == Jokes::Folding::Lowered ? joke.m_loweredJoke : joke.joke().value_or("");
}

void TextSearch::fold(const Jokes& joke)
{
    const OptionalText text = joke.joke();
    if (joke.m_folding != Jokes::Folding::Unknown || !text)
        return;
    if (isAscii(*text)) {
        joke.m_loweredJoke.clear();
        joke.m_folding = Jokes::Folding::Ascii;
    } else {
        // Room comes first, so that the texts lie one behind the other, and not where there is room between
        // what lowering needs for a while.
        joke.m_loweredJoke.reserve(text->size());
        joke.m_loweredJoke.assign(lowered(*text));
        joke.m_folding = Jokes::Folding::Lowered;
    }
}

std::optional<std::size_t> TextSearch::prepare(const ManagedObjectContext& context, std::size_t first,
                                               std::size_t count)
{
    const std::deque<Jokes>& resident = context.residentJokes();
    const std::size_t last = std::min(resident.size(), first + count);
    for (std::size_t i = first; i < last; ++i)
        fold(resident[i]);
    return last < resident.size() ? std::optional(last) : std::nullopt;
}

} // namespace giggle
