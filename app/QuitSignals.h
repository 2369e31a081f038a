// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <array>
#include <memory>

namespace giggle {

/// While it lives, the signals that ask a program to end (a logout, Ctrl+C) end the event loop, so that what
/// is done at the end is done then, too. One at a time; needs a QCoreApplication.
class QuitSignals {
public:
    QuitSignals();
    ~QuitSignals();

    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    std::array<int, 2> m_pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace giggle
