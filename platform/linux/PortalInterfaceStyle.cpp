// SPDX-License-Identifier: MIT
#include "platform/linux/PortalInterfaceStyle.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace giggle {

namespace {

const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString Group = QStringLiteral("org.freedesktop.appearance");
const QString Key = QStringLiteral("color-scheme");

InterfaceStyle::Style styleOfPalette()
{
    const QPalette palette = QGuiApplication::palette();
    const bool dark =
        palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
    return dark ? InterfaceStyle::Style::Dark : InterfaceStyle::Style::Light;
}

} // namespace

PortalInterfaceStyle::PortalInterfaceStyle(QDBusConnection bus, QObject* parent)
    : InterfaceStyle(parent), m_current(styleOfPalette())
{
    qGuiApp->installEventFilter(this);
    if (bus.isConnected()) {
        // Listening comes first, so that no change between the answer and the connection is lost.
        bus.connect(Service, Path, Interface, QStringLiteral("SettingChanged"), this,
                    SLOT(settingChanged(QString, QString, QDBusVariant)));
        readScheme(bus);
    }
}

void PortalInterfaceStyle::readScheme(QDBusConnection& bus)
{
    QDBusMessage message = QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("Read"));
    message.setArguments({Group, Key});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            takeScheme(reply.value().variant());
        watcher->deleteLater();
    });
}

void PortalInterfaceStyle::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == Group && key == Key)
        takeScheme(value.variant());
}

void PortalInterfaceStyle::takeScheme(const QVariant& value)
{
    // `Read` wraps its answer in one variant more than the signal does.
    QVariant scheme = value;
    while (scheme.userType() == qMetaTypeId<QDBusVariant>())
        scheme = scheme.value<QDBusVariant>().variant();
    switch (scheme.toUInt()) {
    case 1:
        m_scheme = Style::Dark;
        break;
    case 2:
        m_scheme = Style::Light;
        break;
    default: // no preference, and whatever later versions add
        m_scheme = Style::Unspecified;
        break;
    }
    update();
}

bool PortalInterfaceStyle::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp)
        update();
    return InterfaceStyle::eventFilter(watched, event);
}

void PortalInterfaceStyle::update()
{
    const Style style = m_scheme == Style::Unspecified ? styleOfPalette() : m_scheme;
    if (style != m_current) {
        m_current = style;
        emit changed();
    }
}

} // namespace giggle
