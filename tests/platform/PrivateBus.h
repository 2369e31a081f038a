// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/CollectionFolder.h"

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>
#include <stdexcept>

#include <sys/prctl.h>

namespace giggle {

/// Runs the event loop until @p condition holds; false when it does not within ten seconds.
inline bool spinUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 10'000);
}

/// A message bus of its own, without any service, that lives as long as the object.
class PrivateBus {
public:
    PrivateBus()
    {
        const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
        writeBytes(configuration, "<busconfig><type>session</type><listen>unix:dir=" +
                                      m_folder.path().toUtf8() + R"(</listen><policy context="default">
                                      <allow send_destination="*" eavesdrop="true"/>
                                      <allow eavesdrop="true"/><allow own="*"/></policy></busconfig>)");
        m_daemon.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--config-file=") + configuration, QStringLiteral("--nofork"),
                        QStringLiteral("--print-address=1")});
        while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(10000)) {
        }
        m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
        if (m_address.isEmpty())
            throw std::runtime_error("no message bus can be started");
    }

    ~PrivateBus()
    {
        for (const QString& name : m_connections)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    /// A new connection, as another process would have one.
    QDBusConnection connect()
    {
        m_connections.append(m_address + QString::number(m_connections.size()));
        return QDBusConnection::connectToBus(m_address, m_connections.last());
    }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace giggle
