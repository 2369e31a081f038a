// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace giggle {

class Jokes;

/// The jokes' texts as searches look at them: one of ASCII alone is the joke's own, any other a copy that was
/// lower-cased by Unicode's rules, an unset one is empty. A text is folded when it is first needed.
class FoldedTexts {
public:
    /// Folds what is missing of at most @p count texts from @p first on. @p jokes are all jokes of a context.
    void prepare(const std::pmr::deque<Jokes>& jokes, std::size_t first, std::size_t count);

    /// The texts of all @p jokes, each at its joke's position. They last until one of the jokes changes.
    [[nodiscard]] const std::vector<std::string_view>& of(const std::pmr::deque<Jokes>& jokes);

    /// The text of the joke at @p position is about to change.
    void forget(std::size_t position);

private:
    [[nodiscard]] std::string_view folded(const Jokes& joke, std::size_t position);

    std::vector<std::string_view> m_texts; ///< with no data: not folded yet
    std::unordered_map<std::size_t, std::string> m_lowered;
};

/// @p text, lower-cased by Unicode's rules.
[[nodiscard]] std::string lowered(std::string_view text);

} // namespace giggle
