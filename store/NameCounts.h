// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace giggle {

/// How many jokes have each name, one object for their categories and one for their ratings. Names are the
/// context's interned ones, so that equal names are the same object; nullptr is an unset name and not
/// counted.
class NameCounts {
public:
    using Name = const std::string*;

    void add(Name name)
    {
        if (name)
            ++m_counts[name];
    }

    void remove(Name name)
    {
        const auto found = m_counts.find(name);
        if (found != m_counts.end() && --found->second == 0)
            m_counts.erase(found);
    }

    [[nodiscard]] std::size_t of(Name name) const
    {
        const auto found = m_counts.find(name);
        return found == m_counts.end() ? 0 : found->second;
    }

    /// Every name that a joke has, once, in no particular order.
    [[nodiscard]] std::vector<std::string_view> names() const
    {
        std::vector<std::string_view> names;
        names.reserve(m_counts.size());
        for (const auto& [name, count] : m_counts)
            names.push_back(*name);
        return names;
    }

private:
    std::unordered_map<Name, std::size_t> m_counts; ///< none is 0
};

} // namespace giggle
