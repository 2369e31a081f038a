// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace giggle {

/// A message bus of its own, without any service, that lives as long as the object.
class PrivateBus {
public:
    /// Throws std::runtime_error when it cannot be started.
    PrivateBus();

    ~PrivateBus();

    /// A new connection, as another process would have one.
    QDBusConnection connect();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace giggle
