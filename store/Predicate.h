// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace giggle {

/// A format string such as "category == %@" or "id == %i", parsed while the program is compiled: one that
/// names no attribute of @p Record, or that asks for an argument of the wrong type, does not build. One "="
/// means the same as two.
template <class Record, AttributeType ArgumentType>
class PredicateFormat {
public:
    // Implicit on purpose: callers write the string itself.
    consteval PredicateFormat(const char* format) : m_attribute(parse(format)) {}

    [[nodiscard]] constexpr Attribute attribute() const { return m_attribute; }

private:
    static consteval Attribute parse(std::string_view format)
    {
        const std::size_t nameEnd = format.find(' ');
        if (nameEnd == std::string_view::npos)
            throw "a predicate reads: attribute, ==, placeholder";
        const std::optional<AttributeDescription> description =
            attributeNamed<Record>(format.substr(0, nameEnd));
        if (!description)
            throw "the entity has no attribute of this name";
        if (description->type != ArgumentType)
            throw "the argument's type is not the attribute's";
        const std::string_view rest = format.substr(nameEnd);
        const std::string_view placeholder = ArgumentType == AttributeType::Text ? "%@" : "%i";
        if (!rest.ends_with(placeholder))
            throw "a text is compared with %@, a number with %i";
        const std::string_view comparison = rest.substr(0, rest.size() - placeholder.size());
        if (comparison != " == " && comparison != " = ")
            throw "only equality is supported";
        return description->attribute;
    }

    Attribute m_attribute;
};

/// The test that a fetch applies to each record: one attribute equals one value, exactly (code points, no
/// trimming, no folding). A record whose attribute is unset matches no `id` and no text; an unset `favorite`
/// reads as 0.
template <class Record>
class Predicate {
public:
    Predicate(PredicateFormat<Record, AttributeType::Text> format, std::string_view argument)
        : m_attribute(format.attribute()), m_argument(std::string(argument))
    {
    }

    template <std::integral Number>
    Predicate(PredicateFormat<Record, AttributeType::Number> format, Number argument)
        : m_attribute(format.attribute()), m_argument(static_cast<std::int64_t>(argument))
    {
    }

    [[nodiscard]] Attribute attribute() const { return m_attribute; }

    [[nodiscard]] const std::string& text() const { return std::get<std::string>(m_argument); }

    [[nodiscard]] std::int64_t number() const { return std::get<std::int64_t>(m_argument); }

    [[nodiscard]] bool matches(const Record& record) const
    {
        if (m_argument.index() == 0)
            return record.text(m_attribute) == text();
        return record.number(m_attribute) == number();
    }

    bool operator==(const Predicate&) const = default;

private:
    Attribute m_attribute;
    std::variant<std::string, std::int64_t> m_argument;
};

} // namespace giggle
