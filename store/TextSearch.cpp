// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"

#include "store/ManagedObjectContext.h"

#include <algorithm>
#include <unordered_map>

namespace giggle {

namespace {

/// The beginnings of texts from all over the collection: enough to tell which bytes are rare in it.
std::string sampleOf(const std::vector<std::string_view>& texts)
{
    constexpr std::size_t Count = 64;
    constexpr std::size_t Size = 128;
    std::string sample;
    for (std::size_t i = 0; i < texts.size(); i += texts.size() / Count + 1)
        sample += texts[i].substr(0, Size);
    return sample;
}

// How far memory is read ahead of its use: where the next one lies a processor cannot guess.
constexpr std::size_t TextsAhead = 6;
constexpr std::size_t JokesAhead = 16;

/// Reads the beginning of a text ahead.
void prefetch(std::string_view text)
{
    constexpr std::size_t UsualSize = 384;
    constexpr std::size_t CacheLine = 64;
    for (std::size_t offset = 0; offset < UsualSize; offset += CacheLine)
        __builtin_prefetch(text.data() + offset);
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
    ManagedObjectContext& context = source.front()->context();
    const std::vector<std::string_view>& texts = context.foldedTexts().of(context.residentJokes());
    const ByteScan scan(m_scan.needle(), sampleOf(texts));
    if (source.size() < texts.size() / 8) {
        std::ranges::copy_if(source, std::back_inserter(found),
                             [&](const Jokes* joke) { return scan.findsIn(texts[joke->position()]); });
        return found;
    }
    // Texts lie in memory in the order of insertion: read in that order they are read several times faster
    // than in the order of the list.
    std::vector<char> isHit(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i + TextsAhead < texts.size())
            prefetch(texts[i + TextsAhead]);
        isHit[i] = scan.findsIn(texts[i]);
    }
    if (std::ranges::find(isHit, char(true)) == isHit.end())
        return found;
    found.reserve(source.size());
    for (std::size_t i = 0; i < source.size(); ++i) {
        if (i + JokesAhead < source.size())
            __builtin_prefetch(source[i + JokesAhead]);
        if (isHit[source[i]->position()] != 0)
            found.push_back(source[i]);
    }
    return found;
}

std::optional<std::size_t> TextSearch::prepare(ManagedObjectContext& context, std::size_t first,
                                               std::size_t count)
{
    const std::pmr::deque<Jokes>& resident = context.residentJokes();
    context.foldedTexts().prepare(resident, first, count);
    return first + count < resident.size() ? std::optional(first + count) : std::nullopt;
}

} // namespace giggle
