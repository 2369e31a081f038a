// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace giggle::ExchangeFormat {

inline constexpr std::string_view CollectionMarker = "[GIGGLEARCHIVES]";
inline constexpr std::string_view CategoryMarker = "[CATEGORY]";
inline constexpr std::string_view RatingMarker = "[RATING]";

inline constexpr char FieldSeparator = '^';

/// How a line feed and a caret inside a joke's text are written. The reader turns the latter into an
/// apostrophe.
inline constexpr std::string_view EscapedLineFeed = "@#@";
inline constexpr std::string_view EscapedCaret = "~#~";

} // namespace giggle::ExchangeFormat
