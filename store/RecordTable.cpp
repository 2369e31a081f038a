// SPDX-License-Identifier: MIT
#include "store/RecordTable.h"

#include "store/RecordSorting.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <sqlite3.h>

namespace giggle {

template <class Record>
void RecordTable<Record>::load(sqlite::Database& database)
{
    try {
        sqlite::Statement rows(database, RowCodec<Record>::SelectAll);
        while (rows.step()) {
            Record& record = append(rows.integer(0));
            record.m_values = RowCodec<Record>::read(rows, m_context);
            m_live.push_back(&record);
        }
    } catch (const StoreError&) {
        m_live.clear();
        m_records.clear();
        throw;
    }
    m_lastOid = m_records.empty() ? 0 : m_records.back().oid();
    m_isLoaded = true;
}

template <class Record>
Record& RecordTable<Record>::append(std::int64_t oid)
{
    return m_records.emplace_back(InsertionKey(), m_context, oid,
                                  static_cast<std::uint32_t>(m_records.size()));
}

template <class Record>
Record& RecordTable<Record>::insert()
{
    if (m_lastOid == std::numeric_limits<std::int64_t>::max())
        throw StoreError(SQLITE_FULL,
                         QStringLiteral("The collection's last record has the highest number that "
                                        "there is: nothing can be added behind it"));
    Record& record = append(++m_lastOid);
    if (m_liveIsCurrent)
        m_live.push_back(&record);
    m_pending.emplace(&record, PendingChange{});
    record.m_isPending = true;
    noteChange(record, m_membershipStamp);
    return record;
}

template <class Record>
void RecordTable<Record>::remove(Record& record)
{
    if (record.m_isDeleted)
        return;
    willChange(record);
    record.m_isDeleted = true;
    const PendingChange& change = m_pending.at(&record);
    if (!change.saved && !change.wasAttempted) {
        m_pending.erase(&record);
        record.m_isPending = false;
    }
    m_liveIsCurrent = false;
    noteChange(record, m_membershipStamp);
}

template <class Record>
void RecordTable<Record>::restore(Record& record)
{
    if (!record.m_isDeleted)
        return;
    // Without a pending change the store holds no such row: the record is as new.
    const auto change = m_pending.try_emplace(&record).first;
    record.m_isDeleted = false;
    record.m_isPending = true;
    forgetIfTakenBack(change);
    m_liveIsCurrent = false;
    noteChange(record, m_membershipStamp);
}

template <class Record>
const typename RecordTable<Record>::Records& RecordTable<Record>::liveRecords()
{
    if (!m_liveIsCurrent) {
        m_live.clear();
        for (Record& record : m_records)
            if (!record.m_isDeleted)
                m_live.push_back(&record);
        m_liveIsCurrent = true;
    }
    return m_live;
}

template <class Record>
void RecordTable<Record>::willChange(Record& record)
{
    if (record.m_isPending)
        return;
    m_pending.emplace(&record, PendingChange{.saved = record.m_values});
    record.m_isPending = true;
}

template <class Record>
void RecordTable<Record>::didChange(Record& record, Attribute attribute)
{
    noteChange(record, m_attributeStamps[static_cast<std::size_t>(attribute)]);
    forgetIfTakenBack(m_pending.find(&record));
}

template <class Record>
void RecordTable<Record>::forgetIfTakenBack(typename PendingChanges::iterator change)
{
    const auto& [record, pending] = *change;
    if (pending.saved != record->m_values || pending.wasAttempted)
        return;
    record->m_isPending = false;
    m_pending.erase(change);
}

template <class Record>
void RecordTable<Record>::writeChanges(sqlite::Database& database)
{
    if (m_pending.empty())
        return;
    if (!m_upsert) {
        m_upsert.emplace(database, RowCodec<Record>::Upsert);
        m_delete.emplace(database, RowCodec<Record>::Delete);
    }
    Records records;
    records.reserve(m_pending.size());
    for (auto& [record, change] : m_pending) {
        change.wasAttempted = true;
        change.wasDeletionAttempted |= record->m_isDeleted;
        records.push_back(record);
    }
    std::ranges::sort(records, {}, &Record::oid);
    for (const Record* record : records) {
        sqlite::Statement& statement = record->m_isDeleted ? *m_delete : *m_upsert;
        statement.bind(1, record->oid());
        if (!record->m_isDeleted)
            RowCodec<Record>::bind(statement, record->m_values);
        statement.run();
    }
}

template <class Record>
void RecordTable<Record>::changesWereSaved()
{
    for (auto& [record, change] : m_pending)
        record->m_isPending = false;
    m_pending.clear();
}

template <class Record>
bool RecordTable<Record>::matches(sqlite::Database& database)
{
    if (!m_isLoaded)
        return true;
    sqlite::Statement rows(database, RowCodec<Record>::SelectAll);
    auto expected = m_records.begin();
    while (rows.step()) {
        const std::int64_t oid = rows.integer(0);
        for (; expected != m_records.end() && expected->oid() < oid; ++expected)
            if (!mayBeAbsent(*expected))
                return false;
        if (expected == m_records.end() || expected->oid() != oid ||
            !rowIsExpected(*expected, RowCodec<Record>::read(rows, m_context)))
            return false;
        ++expected;
    }
    return std::all_of(expected, m_records.end(), [this](Record& record) { return mayBeAbsent(record); });
}

template <class Record>
bool RecordTable<Record>::rowIsExpected(Record& record, const Values& row) const
{
    const auto change = m_pending.find(&record);
    if (change == m_pending.end())
        return !record.m_isDeleted && row == record.m_values;
    return change->second.wasAttempted || row == change->second.saved;
}

template <class Record>
bool RecordTable<Record>::mayBeAbsent(Record& record) const
{
    const auto change = m_pending.find(&record);
    if (change == m_pending.end())
        return record.m_isDeleted;
    return !change->second.saved || change->second.wasDeletionAttempted;
}

template <class Record>
void RecordTable<Record>::noteChange(Record& record, std::uint64_t& stamp)
{
    stamp = ++m_clock;
    m_changedLast[m_clock % RememberedChanges] = &record;
}

template <class Record>
std::uint64_t RecordTable<Record>::stampOf(const FetchRequest<Record>& request) const
{
    const auto stamp = [this](Attribute attribute) {
        return m_attributeStamps[static_cast<std::size_t>(attribute)];
    };
    std::uint64_t newest = m_membershipStamp;
    if (request.predicate)
        newest = std::max(newest, stamp(request.predicate->attribute()));
    for (const auto& descriptor : request.sortDescriptors)
        newest = std::max(newest, stamp(descriptor.key.attribute()));
    return newest;
}

template <class Record>
typename RecordTable<Record>::Records RecordTable<Record>::run(const FetchRequest<Record>& request)
{
    Records records;
    if (request.predicate)
        std::ranges::copy_if(liveRecords(), std::back_inserter(records),
                             [&](const Record* record) { return request.predicate->matches(*record); });
    else
        records = liveRecords();
    RecordSorter<Record>(request.sortDescriptors).sort(records);
    return records;
}

template <class Record>
void RecordTable<Record>::update(CachedFetch& cached) const
{
    Records changed;
    for (std::uint64_t change = cached.clock + 1; change <= m_clock; ++change)
        changed.push_back(m_changedLast[change % RememberedChanges]);
    std::ranges::sort(changed);
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    std::erase_if(cached.records,
                  [&](Record* record) { return std::ranges::binary_search(changed, record); });

    const auto& predicate = cached.request.predicate;
    std::erase_if(changed, [&](const Record* record) {
        return record->m_isDeleted || (predicate && !predicate->matches(*record));
    });
    const RecordSorter<Record> sorter(cached.request.sortDescriptors);
    const auto isBefore = [&](const Record* a, const Record* b) { return sorter.isBefore(a, b); };
    std::ranges::sort(changed, isBefore);
    Records merged;
    merged.reserve(cached.records.size() + changed.size());
    auto rest = cached.records.begin();
    for (Record* record : changed) {
        const auto place = std::lower_bound(rest, cached.records.end(), record, isBefore);
        merged.insert(merged.end(), std::exchange(rest, place), place);
        merged.push_back(record);
    }
    merged.insert(merged.end(), rest, cached.records.end());
    cached.records = std::move(merged);
}

template <class Record>
const typename RecordTable<Record>::Records& RecordTable<Record>::fetch(const FetchRequest<Record>& request)
{
    CachedFetch& cached = slotFor(request);
    const bool isNew = cached.lastUse == 0;
    if (isNew || cached.clock < stampOf(request)) {
        if (isNew || m_clock - cached.clock > RememberedChanges)
            cached.records = run(request);
        else
            update(cached);
    }
    cached.clock = m_clock;
    cached.lastUse = ++m_uses;
    return cached.records;
}

template <class Record>
std::size_t RecordTable<Record>::count(const FetchRequest<Record>& request)
{
    const Records& live = liveRecords();
    if (!request.predicate)
        return live.size();
    return static_cast<std::size_t>(std::ranges::count_if(
        live, [&](const Record* record) { return request.predicate->matches(*record); }));
}

template <class Record>
typename RecordTable<Record>::CachedFetch& RecordTable<Record>::slotFor(const FetchRequest<Record>& request)
{
    const auto known = std::ranges::find(m_cachedFetches, request, &CachedFetch::request);
    if (known != m_cachedFetches.end())
        return *known;
    if (m_cachedFetches.size() < MaximumCachedFetches)
        return m_cachedFetches.emplace_back(CachedFetch{request, 0, 0, {}});
    CachedFetch& oldest = *std::ranges::min_element(m_cachedFetches, {}, &CachedFetch::lastUse);
    oldest = CachedFetch{request, 0, 0, {}};
    return oldest;
}

template class RecordTable<Jokes>;
template class RecordTable<Category>;
template class RecordTable<Rating>;

} // namespace giggle
