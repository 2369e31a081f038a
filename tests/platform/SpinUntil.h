// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

namespace giggle {

/// Runs the event loop until @p condition holds; false when it does not within ten seconds.
template <typename Condition>
bool spinUntil(Condition condition)
{
    return QTest::qWaitFor(condition, 10'000);
}

} // namespace giggle
