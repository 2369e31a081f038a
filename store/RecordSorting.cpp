// SPDX-License-Identifier: MIT
#include "store/RecordSorting.h"

#include "store/Category.h"
#include "store/Jokes.h"
#include "store/Rating.h"

#include <QtEndian>

#include <algorithm>

namespace giggle {

namespace {

constexpr std::size_t ChunkSize = 7;
constexpr std::size_t ReadAhead = 8; // in records

// The lowest byte of a key: what lies behind the chunk's bytes. It orders a text before every longer one that
// begins with it, and tells an unset value from an empty text.
constexpr std::uint64_t Unset = 0;
constexpr std::uint64_t EndsWithinChunk = 1; // plus the number of bytes
constexpr std::uint64_t GoesOn = EndsWithinChunk + ChunkSize + 1;

std::uint64_t chunkKey(OptionalText text, std::size_t offset)
{
    if (!text)
        return Unset;
    const std::string_view rest = text->substr(offset);
    if (rest.size() > ChunkSize)
        return (qFromBigEndian<quint64>(rest.data()) & ~std::uint64_t(0xff)) | GoesOn;
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < rest.size(); ++i)
        key |= std::uint64_t(static_cast<unsigned char>(rest[i])) << (56 - 8 * i);
    return key | (EndsWithinChunk + rest.size());
}

bool isNumber(Attribute attribute)
{
    return attribute == Attribute::id || attribute == Attribute::favorite;
}

bool textGoesOn(std::uint64_t key)
{
    return (key & 0xff) == GoesOn;
}

std::uint64_t numberKey(std::optional<std::int64_t> number)
{
    // All numbers fit 16 bits. They end within the chunk, so that no run asks for more.
    return number ? (std::uint64_t(*number + 0x8000) << 8 | EndsWithinChunk) : Unset;
}

} // namespace

template <class Record>
std::uint64_t RecordSorter<Record>::keyOf(const Record& record, Attribute attribute, std::size_t offset)
{
    if (isNumber(attribute))
        return numberKey(record.number(attribute));
    return chunkKey(record.text(attribute), offset);
}

template <class Record>
void RecordSorter<Record>::sort(std::vector<Record*>& records) const
{
    if (m_descriptors.empty() || records.size() < 2)
        return;
    std::vector<Entry> entries;
    entries.reserve(records.size());
    for (Record* record : records)
        entries.push_back({0, record});
    sortRun(entries, {0, 0});
    std::ranges::transform(entries, records.begin(), &Entry::record);
}

template <class Record>
bool RecordSorter<Record>::isBefore(const Record* left, const Record* right) const
{
    for (const auto& [key, order] : m_descriptors) {
        const Attribute attribute = key.attribute();
        const auto comparison = isNumber(attribute) ? left->number(attribute) <=> right->number(attribute)
                                                    : left->text(attribute) <=> right->text(attribute);
        if (comparison != 0)
            return order == SortOrder::Ascending ? comparison < 0 : comparison > 0;
    }
    return left->oid() < right->oid();
}

template <class Record>
typename RecordSorter<Record>::Place RecordSorter<Record>::next(Place place, std::uint64_t key) const
{
    const bool isFlipped = m_descriptors[place.descriptor].order == SortOrder::Descending;
    return textGoesOn(isFlipped ? ~key : key) ? Place{place.descriptor, place.offset + ChunkSize}
                                              : Place{place.descriptor + 1, 0};
}

template <class Record>
void RecordSorter<Record>::sortRun(std::span<Entry> run, Place place) const
{
    sortAt(run, place);
    // Long texts that are equal for thousands of chunks must not cost a stack frame for each.
    while (run.front().key == run.back().key && place.descriptor < m_descriptors.size()) {
        place = next(place, run.front().key);
        sortAt(run, place);
    }
    if (place.descriptor == m_descriptors.size())
        return;
    for (auto first = run.begin(); first != run.end();) {
        const std::uint64_t equal = first->key;
        const auto last =
            std::find_if(first, run.end(), [&](const Entry& entry) { return entry.key != equal; });
        if (last - first > 1)
            sortRun({first, last}, next(place, equal));
        first = last;
    }
}

template <class Record>
void RecordSorter<Record>::sortAt(std::span<Entry> run, Place place) const
{
    if (place.descriptor == m_descriptors.size()) {
        std::ranges::sort(run, {}, [](const Entry& entry) { return entry.record->oid(); });
        return;
    }
    const auto [key, order] = m_descriptors[place.descriptor];
    const std::uint64_t flip = order == SortOrder::Descending ? ~std::uint64_t(0) : 0;
    for (std::size_t i = 0; i < run.size(); ++i) {
        // The records of a run and their texts lie anywhere in memory: they are read ahead of their use.
        if (i + 2 * ReadAhead < run.size())
            __builtin_prefetch(run[i + 2 * ReadAhead].record);
        if (i + ReadAhead < run.size())
            __builtin_prefetch(run[i + ReadAhead].record->text(key.attribute()).value_or("").data() +
                               place.offset);
        run[i].key = keyOf(*run[i].record, key.attribute(), place.offset) ^ flip;
    }
    std::ranges::sort(run, {}, &Entry::key);
}

template class RecordSorter<Jokes>;
template class RecordSorter<Category>;
template class RecordSorter<Rating>;

} // namespace giggle
