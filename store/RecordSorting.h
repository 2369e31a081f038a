// SPDX-License-Identifier: MIT
#pragma once

#include "store/FetchRequest.h"

#include <cstdint>
#include <span>
#include <vector>

namespace giggle {

/// Puts records into the order of sort descriptors, ties in the order of insertion.
///
/// Comparing texts record by record would touch two far-apart places of memory for every comparison. So the
/// keys are taken seven bytes at a time into one array next to each other and sorted there; only the runs
/// that are still equal take their next seven bytes, or the next descriptor's first ones.
template <class Record>
class RecordSorter {
public:
    explicit RecordSorter(std::span<const SortDescriptor<Record>> descriptors) : m_descriptors(descriptors) {}

    void sort(std::vector<Record*>& records) const;

    /// Whether the order has @p left before @p right.
    [[nodiscard]] bool isBefore(const Record* left, const Record* right) const;

private:
    struct Entry {
        std::uint64_t key;
        Record* record;
    };

    /// Which bytes are compared: those of one descriptor's text from an offset on. Past the last descriptor
    /// it is the order of insertion.
    struct Place {
        std::size_t descriptor;
        std::size_t offset;
    };

    /// Sorts entries that are equal in everything before @p place; @p run must not be empty.
    void sortRun(std::span<Entry> run, Place place) const;
    void sortAt(std::span<Entry> run, Place place) const;

    /// What decides between entries whose keys at @p place are @p key.
    [[nodiscard]] Place next(Place place, std::uint64_t key) const;
    static std::uint64_t keyOf(const Record& record, Attribute attribute, std::size_t offset);

    std::span<const SortDescriptor<Record>> m_descriptors;
};

} // namespace giggle
