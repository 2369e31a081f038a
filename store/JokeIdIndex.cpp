// SPDX-License-Identifier: MIT
#include "store/JokeIdIndex.h"

#include "store/Jokes.h"

#include <bit>
#include <limits>

namespace giggle {

namespace {

std::size_t slotOf(std::int64_t id)
{
    return static_cast<std::size_t>(id - std::numeric_limits<std::int16_t>::min());
}

} // namespace

void JokeIdIndex::add(Jokes& joke)
{
    if (!joke.id())
        return;
    const std::size_t number = slotOf(*joke.id());
    Slot& slot = m_slots[number];
    if (!slot.first)
        markUsed(number, true);
    if (!slot.last || slot.last->oid() < joke.oid()) {
        (slot.last ? slot.last->m_nextWithSameId : slot.first) = &joke;
        slot.last = &joke;
        return;
    }
    Jokes** place = &slot.first;
    while ((*place)->oid() < joke.oid())
        place = &(*place)->m_nextWithSameId;
    joke.m_nextWithSameId = *place;
    *place = &joke;
}

void JokeIdIndex::remove(Jokes& joke)
{
    if (!joke.id())
        return;
    const std::size_t number = slotOf(*joke.id());
    Slot& slot = m_slots[number];
    Jokes* previous = nullptr;
    for (Jokes* at = slot.first; at != &joke; at = at->m_nextWithSameId)
        previous = at;
    (previous ? previous->m_nextWithSameId : slot.first) = joke.m_nextWithSameId;
    if (slot.last == &joke)
        slot.last = previous;
    joke.m_nextWithSameId = nullptr;
    if (!slot.first)
        markUsed(number, false);
}

std::vector<Jokes*> JokeIdIndex::jokesWithId(std::int64_t id) const
{
    std::vector<Jokes*> jokes;
    if (id < std::numeric_limits<std::int16_t>::min() || id > std::numeric_limits<std::int16_t>::max())
        return jokes;
    for (Jokes* joke = m_slots[slotOf(id)].first; joke; joke = joke->m_nextWithSameId)
        jokes.push_back(joke);
    return jokes;
}

std::optional<std::int16_t> JokeIdIndex::highestId() const
{
    for (std::size_t word = m_used.size(); word-- > 0;) {
        if (m_used[word] == 0)
            continue;
        const std::size_t slot =
            word * BitsPerWord + static_cast<std::size_t>(std::bit_width(m_used[word])) - 1;
        return static_cast<std::int16_t>(static_cast<std::int64_t>(slot) +
                                         std::numeric_limits<std::int16_t>::min());
    }
    return std::nullopt;
}

void JokeIdIndex::markUsed(std::size_t slot, bool used)
{
    const std::uint64_t bit = std::uint64_t(1) << (slot % BitsPerWord);
    if (used)
        m_used[slot / BitsPerWord] |= bit;
    else
        m_used[slot / BitsPerWord] &= ~bit;
}

} // namespace giggle
