// SPDX-License-Identifier: MIT
#pragma once

#include "store/FetchRequest.h"
#include "store/ManagedObject.h"
#include "store/RowCodec.h"
#include "store/sqlite/Database.h"

#include <array>
#include <cstdint>
#include <deque>
#include <memory_resource>
#include <optional>
#include <unordered_map>
#include <vector>

namespace giggle {

/// All records of one entity: resident in memory, with what has changed since the last save. A part of
/// ManagedObjectContext, which documents what callers may rely on.
template <class Record>
class RecordTable {
public:
    using Records = std::vector<Record*>;

    explicit RecordTable(ManagedObjectContext& context) : m_context(context) {}

    [[nodiscard]] bool isLoaded() const { return m_isLoaded; }

    /// Reads every row. After a failure the table is as it was before, not loaded.
    void load(sqlite::Database& database);

    Record& insert();
    void remove(Record& record);
    void restore(Record& record);

    /// Every record that is not deleted, in the order of insertion.
    [[nodiscard]] const Records& liveRecords();

    /// Every record, deleted ones included, each at its position.
    [[nodiscard]] const std::pmr::deque<Record>& allRecords() const { return m_records; }

    /// @name A change of an attribute is made between these two
    /// @{
    void willChange(Record& record);
    void didChange(Record& record, Attribute attribute);

    /// @}

    [[nodiscard]] bool hasChanges() const { return !m_pending.empty(); }

    /// Writes what has changed, inside the caller's transaction.
    void writeChanges(sqlite::Database& database);

    /// The transaction was committed: nothing is pending any more.
    void changesWereSaved();

    /// Whether the rows on disk are those that this table has loaded or written, as far as that is certain.
    [[nodiscard]] bool matches(sqlite::Database& database);

    /// The result of @p request; the same request costs next to nothing as long as nothing it depends on
    /// changes.
    [[nodiscard]] const Records& fetch(const FetchRequest<Record>& request);

    /// How many records @p request asks for, counted one by one.
    [[nodiscard]] std::size_t count(const FetchRequest<Record>& request);

private:
    using Values = typename RowCodec<Record>::Values;

    struct PendingChange {
        /// What the store holds; nothing for a new record.
        std::optional<Values> saved;
        /// A save that failed has tried to write the record. It may have reached the disk all the same, so
        /// that what the store holds is uncertain, and the record stays pending until a save succeeds.
        bool wasAttempted = false;
        /// One of these has tried to delete it: its row may be gone.
        bool wasDeletionAttempted = false;
    };

    using PendingChanges = std::unordered_map<Record*, PendingChange>;

    /// A fetch result as it was when m_clock stood at `clock`.
    struct CachedFetch {
        FetchRequest<Record> request;
        std::uint64_t clock = 0;
        std::uint64_t lastUse = 0;
        Records records;
    };

    static constexpr std::size_t MaximumCachedFetches = 8;

    /// After more changes than these a fetch is made from scratch, which then is hardly slower.
    static constexpr std::size_t RememberedChanges = 64;

    Record& append(std::int64_t oid);
    /// A change whose record is what the store is certain to hold is none.
    void forgetIfTakenBack(typename PendingChanges::iterator change);
    /// Notes a change in the stamp of what it concerns.
    void noteChange(Record& record, std::uint64_t& stamp);
    /// When something changed last that the result of @p request depends on: who is there, and the attributes
    /// of its predicate and its sort keys.
    [[nodiscard]] std::uint64_t stampOf(const FetchRequest<Record>& request) const;
    [[nodiscard]] Records run(const FetchRequest<Record>& request);
    /// Puts the records that have changed since where they belong now, and leaves the order of all others.
    void update(CachedFetch& cached) const;
    CachedFetch& slotFor(const FetchRequest<Record>& request);
    [[nodiscard]] bool rowIsExpected(Record& record, const Values& row) const;
    [[nodiscard]] bool mayBeAbsent(Record& record) const;

    ManagedObjectContext& m_context;
    std::pmr::unsynchronized_pool_resource m_memory; // has records lie next to each other
    std::pmr::deque<Record> m_records{&m_memory};    // in the order of their oids
    Records m_live;
    bool m_liveIsCurrent = true;
    bool m_isLoaded = false;
    std::int64_t m_lastOid = 0;
    PendingChanges m_pending;

    std::uint64_t m_clock = 0;                              // counts changes
    std::array<Record*, RememberedChanges> m_changedLast{}; // the change n at n modulo its size
    std::uint64_t m_uses = 0;                               // counts fetches
    std::uint64_t m_membershipStamp = 0;
    std::array<std::uint64_t, AttributeCount> m_attributeStamps{};
    std::vector<CachedFetch> m_cachedFetches;

    std::optional<sqlite::Statement> m_upsert;
    std::optional<sqlite::Statement> m_delete;
};

} // namespace giggle
