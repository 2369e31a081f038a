// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"
#include "store/Jokes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace giggle {

/// The text that is shared, mailed and printed: jokes in large bold type, each with a dashed line below it
/// and some room. It is put together as plain text, which is what most of them take; how its pieces look is
/// worked out when it is asked for. Nothing of a joke is left out.
class JokeComposition {
public:
    /// A line that says where the text comes from.
    void appendHeader();

    void appendJoke(std::string_view text);

    /// In this order; a joke without a text is an empty piece.
    void appendJokes(const std::vector<Jokes*>& jokes);

    /// In UTF-8.
    [[nodiscard]] const std::string& text() const { return m_text; }

    [[nodiscard]] QString plainText() const;

    [[nodiscard]] AttributedText attributedText() const;

private:
    enum class Look : std::uint8_t { Header, Joke, Dashes, Room };

    struct Piece {
        std::size_t end;
        Look look;
    };

    [[nodiscard]] static TextAttributes attributes(Look look);
    void append(std::string_view text, Look look);

    std::string m_text;
    std::vector<Piece> m_pieces;
};

/// Some jokes and nothing else.
[[nodiscard]] JokeComposition composeJokes(const std::vector<Jokes*>& jokes);

} // namespace giggle
