// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"

#include <QString>

#include <algorithm>
#include <array>
#include <string_view>

namespace giggle {

/// The characters of a joke that are shown in rows and that a save keeps: full stop, digits, letters,
/// punctuation, line feed and blank. Apostrophe, double quote, backslash, vertical bar, caret and everything
/// beyond ASCII are not among them.
inline constexpr std::string_view AllowedDisplayCharacters =
    ".0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ,;:-=?!@#$%&*()[]{}/<>_+~`\n ";

/// The characters that can be typed while a joke is edited: the same without the line feed.
inline constexpr auto AllowedEditCharacters = [] {
    std::array<char, AllowedDisplayCharacters.size() - 1> characters{};
    std::ranges::remove_copy(AllowedDisplayCharacters, characters.begin(), '\n');
    return characters;
}();

/// The text without every character (code point) that is not allowed in display.
[[nodiscard]] QString filteredForDisplay(std::string_view utf8);
[[nodiscard]] QString filteredForDisplay(const QString& text);

/// Whether every character of the text can be typed while a joke is edited.
[[nodiscard]] bool isAllowedInEditing(const QString& text);

/// The text without the blanks at both ends: tabs and every space separator of Unicode, but no line break.
[[nodiscard]] QString trimmedOfBlanks(const QString& text);

/// Whether the text holds a word of more than 2000 characters. To wrap such a word only where it cannot be
/// helped takes the square of its length, which for a megabyte is a minute and more: it has to be wrapped
/// anywhere.
[[nodiscard]] bool holdsLongWord(const QString& text);

/// A record's text; an unset one is empty.
[[nodiscard]] QString textOrEmpty(OptionalText utf8);

} // namespace giggle
