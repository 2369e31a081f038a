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

private:
    struct Entry {
        std::uint64_t key;
        Record* record;
    };

    void sortRun(std::span<Entry> run, std::size_t descriptor, std::size_t offset) const;
    static std::uint64_t keyOf(const Record& record, Attribute attribute, std::size_t offset);

    std::span<const SortDescriptor<Record>> m_descriptors;
};

} // namespace giggle
