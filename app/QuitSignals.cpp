// SPDX-License-Identifier: MIT
#include "app/QuitSignals.h"

#include <QCoreApplication>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace giggle {

namespace {

constexpr std::array Signals{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t writeEnd = -1;

// Nothing but a write is allowed in here.
extern "C" void passOn(int)
{
    const char byte = 1;
    if (::write(writeEnd, &byte, 1) < 0)
        return; // there is nobody who could be told
}

} // namespace

QuitSignals::QuitSignals()
{
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = m_pipe[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    // Not quit(), which asks the windows, which may ask the user.
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [] { QCoreApplication::exit(); });
    for (const int signal : Signals)
        std::signal(signal, passOn);
}

QuitSignals::~QuitSignals()
{
    if (!m_notifier)
        return;
    for (const int signal : Signals)
        std::signal(signal, SIG_DFL);
    m_notifier.reset();
    for (const int end : m_pipe)
        ::close(end);
}

} // namespace giggle
