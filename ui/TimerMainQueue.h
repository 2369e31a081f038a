// SPDX-License-Identifier: MIT
#pragma once

#include "ui/MainQueue.h"

#include <QObject>

namespace giggle {

/// The main queue on the event loop of the thread that makes it. Work that is still waiting when the queue is
/// destroyed is dropped.
class TimerMainQueue : public MainQueue {
public:
    void asyncAfter(std::chrono::milliseconds delay, Work work) override;

private:
    QObject m_lifetime; // the receiver of every timer
};

} // namespace giggle
