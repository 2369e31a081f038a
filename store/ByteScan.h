// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace giggle {

/// Whether @p text contains @p needle when the ASCII letters of @p text are lower-cased. The needle must be
/// lower-cased already; bytes beyond ASCII count as they are. An empty needle is contained in every text.
[[nodiscard]] bool containsIgnoringAsciiCase(std::string_view text, std::string_view needle);

[[nodiscard]] bool isAscii(std::string_view text);

} // namespace giggle
