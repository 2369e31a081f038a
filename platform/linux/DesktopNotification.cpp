// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopNotification.h"

#include "platform/linux/ApplicationIdentity.h"

#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

namespace giggle {

DesktopNotification::DesktopNotification(QDBusConnection bus, std::chrono::milliseconds patience)
    : m_bus(std::move(bus)), m_patience(patience)
{
}

bool DesktopNotification::show(const QString& summary, const QString& body) const
{
    if (!m_bus.isConnected())
        return false;
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    // Critical ones stay until they are dismissed. No hint names the desktop file: a notification that
    // belongs to an application may be taken back when that application leaves the bus.
    const QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(uchar(2))}};
    constexpr quint32 replacesNone = 0;
    constexpr int shownForTheUsualTime = -1;
    message.setArguments({ApplicationIdentity::displayName(), replacesNone,
                          ApplicationIdentity::applicationId(), summary, body.toHtmlEscaped(), QStringList(),
                          hints, shownForTheUsualTime});
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, static_cast<int>(m_patience.count()));
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace giggle
