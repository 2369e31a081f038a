// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace giggle {

/// Runs the event loop until @p condition holds; false when it does not within ten seconds.
template <typename Condition>
bool spinUntil(Condition condition)
{
    const QDeadlineTimer deadline(10000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    return true;
}

} // namespace giggle
