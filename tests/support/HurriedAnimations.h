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
        install();
    }

    ~HurriedAnimations() override { uninstall(); }

    HurriedAnimations(const HurriedAnimations&) = delete;
    HurriedAnimations& operator=(const HurriedAnimations&) = delete;

    [[nodiscard]] qint64 elapsed() const override { return m_clock.isValid() ? 8 * m_clock.elapsed() : 0; }

protected:
    void start() override
    {
        m_clock.start();
        m_timer.start(4);
        QAnimationDriver::start();
    }

    void stop() override
    {
        m_timer.stop();
        QAnimationDriver::stop();
    }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
};

} // namespace giggle
