// SPDX-License-Identifier: MIT
#pragma once

#include "ui/MainQueue.h"

#include <map>

namespace giggle {

/// A main queue whose clock stands still until a test turns it.
class HandTurnedQueue : public MainQueue {
public:
    void asyncAfter(std::chrono::milliseconds delay, Work work) override
    {
        m_work.emplace(m_now + delay, std::move(work));
    }

    /// Runs what falls due within @p time, work that is queued meanwhile included.
    void advance(std::chrono::milliseconds time)
    {
        const auto end = m_now + time;
        while (!m_work.empty() && m_work.begin()->first <= end) {
            auto due = m_work.extract(m_work.begin());
            m_now = due.key();
            due.mapped()();
        }
        m_now = end;
    }

    [[nodiscard]] std::size_t waiting() const { return m_work.size(); }

private:
    std::chrono::milliseconds m_now{0};
    std::multimap<std::chrono::milliseconds, Work> m_work;
};

} // namespace giggle
