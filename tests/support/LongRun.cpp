// SPDX-License-Identifier: MIT
#include "tests/support/LongRun.h"

#include <QtGlobal>

#include <cstdio>

#include <gtest/gtest.h>

namespace giggle {

bool isLongRun()
{
    return qEnvironmentVariableIntValue("GIGGLE_LONG") != 0;
}

void reportCount(const char* what, int tried)
{
    std::printf("%s: %d tried, %s\n", what, tried,
                testing::Test::HasFailure() ? "not all survived" : "all survived");
    testing::Test::RecordProperty(std::string(what) + ", tried", tried);
}

} // namespace giggle
