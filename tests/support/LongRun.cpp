// SPDX-License-Identifier: MIT
#include "tests/support/LongRun.h"

#include <QtGlobal>

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

namespace giggle {

bool isLongRun()
{
    return qEnvironmentVariableIntValue("GIGGLE_LONG") != 0;
}

void reportCount(const char* what, int tried, int survived)
{
    std::printf("%s: %d tried, %d survived\n", what, tried, survived);
    testing::Test::RecordProperty(std::string(what) + ", tried", tried);
    testing::Test::RecordProperty(std::string(what) + ", survived", survived);
    EXPECT_EQ(survived, tried);
}

} // namespace giggle
