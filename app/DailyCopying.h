// SPDX-License-Identifier: MIT
#pragma once

#include "store/DailyCopies.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class QThread;

namespace giggle {

class AppDelegate;

/// Sees to it that the collection is copied on every day on which it changes: when it has been left alone for
/// a while, at most once in an interval, in a thread of its own; and when the application ends. Failures are
/// only logged: the collection itself is not concerned.
class DailyCopying : public QObject {
public:
    struct Pace {
        std::chrono::milliseconds quiet = std::chrono::seconds(20);
        std::chrono::milliseconds interval = std::chrono::hours(1);
    };

    /// Hears of the saves of @p appDelegate, which outlives it.
    explicit DailyCopying(AppDelegate& appDelegate);
    DailyCopying(AppDelegate& appDelegate, Pace pace);

    /// Makes the copy that is still due, in this thread.
    ~DailyCopying() override;

    DailyCopying(const DailyCopying&) = delete;
    DailyCopying& operator=(const DailyCopying&) = delete;

private:
    void collectionSaved();
    void copyIfQuiet();

    AppDelegate& m_appDelegate;
    Pace m_pace;
    DailyCopies m_copies;
    QTimer m_timer;
    QDeadlineTimer m_untilQuiet;
    QDeadlineTimer m_untilNext;
    bool m_isDue = false;
    std::unique_ptr<QThread> m_thread;
};

} // namespace giggle
