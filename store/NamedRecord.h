// SPDX-License-Identifier: MIT
#pragma once

#include "store/FetchRequest.h"
#include "store/ManagedObject.h"

#include <string>

namespace giggle {

/// What categories and ratings have in common: a record whose one attribute is a name.
class NamedRecord : public ManagedObject {
public:
    [[nodiscard]] OptionalText name() const { return m_values.name; }

    /// The record's one attribute, whatever @p attribute says: predicates are checked against the entity.
    [[nodiscard]] OptionalText text(Attribute) const { return m_values.name; }

    /// There is no number attribute.
    [[nodiscard]] std::optional<std::int64_t> number(Attribute) const { return std::nullopt; }

protected:
    struct Values {
        std::optional<std::string> name;

        bool operator==(const Values&) const = default;
    };

    using ManagedObject::ManagedObject;

    Values m_values;
};

} // namespace giggle
