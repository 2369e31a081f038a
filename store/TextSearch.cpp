// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"

#include "store/ByteScan.h"
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

} // namespace

bool TextSearch::isContainedIn(std::string_view text) const
{
    return isAscii(text) ? findsFolded(text) : findsFolded(lowered(text));
}

bool TextSearch::findsFolded(std::string_view text) const
{
    return containsIgnoringAsciiCase(text, m_needle);
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
    if (source.size() < resident.size() / 8) {
        std::ranges::copy_if(source, std::back_inserter(found),
                             [this](const Jokes* joke) { return isContainedInJoke(*joke); });
        return found;
    }
    // Texts lie in memory in the order of insertion: read in that order they are read several times faster
    // than in the order of the list.
    std::vector<char> isHit;
    isHit.reserve(resident.size());
    for (const Jokes& joke : resident)
        isHit.push_back(isContainedInJoke(joke));
    std::ranges::copy_if(source, std::back_inserter(found),
                         [&](const Jokes* joke) { return isHit[joke->position()] != 0; });
    return found;
}

bool TextSearch::isContainedInJoke(const Jokes& joke) const
{
    const OptionalText text = joke.joke();
    if (!text)
        return false;
    fold(joke);
    return findsFolded(joke.m_folding == Jokes::Folding::Ascii ? *text : *joke.m_loweredJoke);
}

void TextSearch::fold(const Jokes& joke)
{
    const OptionalText text = joke.joke();
    if (joke.m_folding != Jokes::Folding::Unknown || !text)
        return;
    if (isAscii(*text)) {
        joke.m_loweredJoke.reset();
        joke.m_folding = Jokes::Folding::Ascii;
    } else {
        joke.m_loweredJoke = std::make_unique<const std::string>(lowered(*text));
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
