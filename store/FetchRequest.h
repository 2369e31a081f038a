// SPDX-License-Identifier: MIT
#pragma once

#include "store/Predicate.h"

#include <optional>
#include <vector>

namespace giggle {

enum class SortOrder { Ascending, Descending };

/// The name of an attribute of @p Record, checked while the program is compiled.
template <class Record>
class AttributeKey {
public:
    consteval AttributeKey(const char* name) : m_attribute(attributeNamed<Record>(name).value().attribute) {}

    [[nodiscard]] constexpr Attribute attribute() const { return m_attribute; }

    bool operator==(const AttributeKey&) const = default;

private:
    Attribute m_attribute;
};

/// One key of a fetch's order. Texts are ordered by code point; an unset value sorts before every other when
/// ascending, after every other when descending.
template <class Record>
struct SortDescriptor {
    AttributeKey<Record> key;
    SortOrder order = SortOrder::Ascending;

    bool operator==(const SortDescriptor&) const = default;
};

/// Which records of an entity are wanted, and in which order. Without a predicate all of them, without sort
/// descriptors in the order in which they were inserted; so are records that all descriptors find equal.
/// What a fetch returns is always fully materialised.
template <class Record>
struct FetchRequest {
    std::optional<Predicate<Record>> predicate;
    std::vector<SortDescriptor<Record>> sortDescriptors;

    bool operator==(const FetchRequest&) const = default;
};

} // namespace giggle
