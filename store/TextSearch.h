// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"
#include "store/ByteScan.h"

#include <QString>

#include <string>
#include <vector>

namespace giggle {

class ManagedObjectContext;

/// A search text, prepared once for many texts: whether a text contains it when both are lower-cased by
/// Unicode's rules.
class TextSearch {
public:
    /// @param searchText must not be empty
    explicit TextSearch(const QString& searchText) : m_scan(searchText.toLower().toUtf8().toStdString()) {}

    [[nodiscard]] bool isContainedIn(std::string_view text) const;

    /// The jokes of @p source, in its order, whose attribute is set and contains the search text.
    [[nodiscard]] std::vector<Jokes*> filter(const std::vector<Jokes*>& source, Attribute attribute) const;

    /// Does in advance what the first search in joke texts would do, for at most @p count jokes from the
    /// resident joke at @p first on. Returns where to go on, or nothing when every joke has been looked at.
    static std::optional<std::size_t> prepare(ManagedObjectContext& context, std::size_t first,
                                              std::size_t count);

private:
    [[nodiscard]] std::vector<Jokes*> filterByName(const std::vector<Jokes*>& source,
                                                   Attribute attribute) const;
    [[nodiscard]] std::vector<Jokes*> filterByJoke(const std::vector<Jokes*>& source) const;

    ByteScan m_scan;
};

} // namespace giggle
