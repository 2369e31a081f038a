// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace giggle {

/// The characters of a joke that are shown in rows and that a save keeps: full stop, digits, letters,
/// punctuation, line feed and blank. Apostrophe, double quote, backslash, vertical bar, caret and everything
/// beyond ASCII are not among them.
inline constexpr std::string_view AllowedDisplayCharacters =
    ".0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ,;:-=?!@#$%&*()[]{}/<>_+~`\n ";

/// The text without every character (code point) that is not allowed in display.
[[nodiscard]] QString filteredForDisplay(std::string_view utf8);

} // namespace giggle
