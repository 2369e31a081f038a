// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

/// Whether the long form of the tests was asked for.
[[nodiscard]] bool isLongRun();

/// Says how many faults of a kind were tried, and whether all were survived, on the console and in the test's
/// record.
void reportCount(const char* what, int tried);

} // namespace giggle
