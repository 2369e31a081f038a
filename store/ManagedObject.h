// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace giggle {

class ManagedObjectContext;
template <class Record>
class RecordTable;

/// Only a context can make records: its tables alone can make this key.
class InsertionKey {
    template <class Record>
    friend class RecordTable;

    InsertionKey() = default;
};

/// What every record has. Records are made and owned by their context and keep their address as long as it
/// lives, also after deletion: a deleted record stays readable and keeps its last values, and setting one of
/// its attributes does nothing, until the context restores it.
class ManagedObject {
public:
    ManagedObject(InsertionKey, ManagedObjectContext& context, std::int64_t oid, std::uint32_t position)
        : m_context(&context), m_oid(oid), m_position(position)
    {
    }

    ManagedObject(const ManagedObject&) = delete;
    ManagedObject& operator=(const ManagedObject&) = delete;

    /// The number of the record's row: grows in the order of insertion.
    [[nodiscard]] std::int64_t oid() const { return m_oid; }

    [[nodiscard]] bool isDeleted() const { return m_isDeleted; }

protected:
    ~ManagedObject() = default;

    [[nodiscard]] ManagedObjectContext& context() const { return *m_context; }

    /// The record's place among all records of its entity, deleted ones included.
    [[nodiscard]] std::uint32_t position() const { return m_position; }

private:
    template <class Record>
    friend class RecordTable;

    ManagedObjectContext* m_context;
    std::int64_t m_oid;
    std::uint32_t m_position;
    bool m_isDeleted = false;
    bool m_isPending = false;
};

} // namespace giggle
