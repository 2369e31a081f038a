// SPDX-License-Identifier: MIT
#include "tests/platform/PrivateBus.h"

#include "tests/support/CollectionFolder.h"

#include <csignal>
#include <stdexcept>

#include <sys/prctl.h>

namespace giggle {

PrivateBus::PrivateBus()
{
    const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
    writeBytes(configuration, "<busconfig><type>session</type><listen>unix:dir=" + m_folder.path().toUtf8() +
                                  R"(</listen><policy context="default">
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

PrivateBus::~PrivateBus()
{
    for (const QString& name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    m_daemon.kill();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connect()
{
    const QString name = m_address + QString::number(m_connections.size());
    m_connections.append(name);
    return QDBusConnection::connectToBus(m_address, name);
}

} // namespace giggle
