// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstdio>

#include <gtest/gtest.h>

namespace giggle {

/// Whether the long form of the tests was asked for.
[[nodiscard]] inline bool isLongRun()
{
    return qEnvironmentVariableIntValue("GIGGLE_LONG") != 0;
}

/// Says how many faults of a kind were tried, and whether all were survived, on the console and in the test's
/// record.
inline void reportCount(const char* what, int tried)
{
    std::printf("%s: %d tried, %s\n", what, tried,
                testing::Test::HasFailure() ? "not all survived" : "all survived");
    testing::Test::RecordProperty(std::string(what) + ", tried", tried);
}

} // namespace giggle
