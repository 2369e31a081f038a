// SPDX-License-Identifier: MIT
#include "ui/TimerMainQueue.h"

#include <QTimer>

namespace giggle {

void TimerMainQueue::asyncAfter(std::chrono::milliseconds delay, Work work)
{
    // Coarse timers may overtake each other.
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_lifetime, std::move(work));
}

} // namespace giggle
