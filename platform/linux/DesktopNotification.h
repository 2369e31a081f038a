// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QString>

#include <chrono>

namespace giggle {

/// Shows a notification of the desktop. Made for the moment before the program aborts: it needs no event loop
/// and returns when the notification has arrived, or after @p patience.
class DesktopNotification {
public:
    explicit DesktopNotification(QDBusConnection bus = QDBusConnection::sessionBus(),
                                 std::chrono::milliseconds patience = std::chrono::seconds(2));

    /// @p body is plain text. False when there is no bus or no notification service, or when it did not
    /// answer.
    bool show(const QString& summary, const QString& body) const;

private:
    QDBusConnection m_bus;
    std::chrono::milliseconds m_patience;
};

} // namespace giggle
