// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace giggle {

class Category;
class Jokes;
class Rating;

/// Every attribute that a record of some entity has. A joke has them all.
enum class Attribute { category, favorite, id, joke, rating };

inline constexpr std::size_t AttributeCount = 5;

enum class AttributeType { Text, Number };

/// A text attribute's value: UTF-8, or nothing when it is unset. A view lasts until the attribute is next
/// set.
using OptionalText = std::optional<std::string_view>;

struct AttributeDescription {
    std::string_view name;
    Attribute attribute;
    AttributeType type;
};

/// The data model: an entity's attributes, in the order of its table's columns.
template <class Record>
struct Entity;

template <>
struct Entity<Jokes> {
    static constexpr std::array attributes{
        AttributeDescription{"category", Attribute::category, AttributeType::Text},
        AttributeDescription{"favorite", Attribute::favorite, AttributeType::Number},
        AttributeDescription{"id", Attribute::id, AttributeType::Number},
        AttributeDescription{"joke", Attribute::joke, AttributeType::Text},
        AttributeDescription{"rating", Attribute::rating, AttributeType::Text},
    };
    static_assert(attributes.size() == AttributeCount);
};

template <>
struct Entity<Category> {
    static constexpr std::array attributes{
        AttributeDescription{"category", Attribute::category, AttributeType::Text}};
};

template <>
struct Entity<Rating> {
    static constexpr std::array attributes{
        AttributeDescription{"rating", Attribute::rating, AttributeType::Text}};
};

/// The description of the entity's attribute called @p name, or nothing when it has none.
template <class Record>
constexpr std::optional<AttributeDescription> attributeNamed(std::string_view name)
{
    // No pointer into the array: GCC 12 takes its test against nullptr for no constant expression when it
    // builds with the undefined-behaviour sanitizer.
    for (const AttributeDescription& description : Entity<Record>::attributes)
        if (description.name == name)
            return description;
    return std::nullopt;
}

} // namespace giggle
