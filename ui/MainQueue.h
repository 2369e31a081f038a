// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace giggle {

/// Work that is done later on the main thread, in the order in which it falls due. Screens queue work only
/// here, so that a test can turn the clock by hand.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;

    /// Runs @p work once the event loop is reached again.
    void async(Work work) { asyncAfter(std::chrono::milliseconds(0), std::move(work)); }

    /// Runs @p work once @p delay has passed. Work must not outlive what it refers to: capture weakly.
    virtual void asyncAfter(std::chrono::milliseconds delay, Work work) = 0;
};

} // namespace giggle
