// SPDX-License-Identifier: MIT
#pragma once

#include <QAnimationDriver>
#include <QElapsedTimer>
#include <QTimer>

namespace giggle {

/// While it lives, animations run eight times as fast.
class HurriedAnimations : public QAnimationDriver {
public:
    HurriedAnimations()
    {
        m_timer.callOnTimeout([this] { advance(); });
        m_timer.start(4);
        install();
    }

    ~HurriedAnimations() override { uninstall(); }

    [[nodiscard]] qint64 elapsed() const override { return m_clock.isValid() ? 8 * m_clock.elapsed() : 0; }

protected:
    void start() override
    {
        m_clock.start();
        QAnimationDriver::start();
    }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
};

} // namespace giggle
