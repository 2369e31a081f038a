// SPDX-License-Identifier: MIT
#include "platform/linux/PortalInterfaceStyle.h"

#include "platform/linux/DesktopPortal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace giggle {

namespace {

const QString Interface = DesktopPortal::interfaceName(QStringLiteral("Settings"));
const QString Appearance = QStringLiteral("org.freedesktop.appearance");
const QString Desktop = QStringLiteral("org.gnome.desktop.interface");
const QString Accessibility = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString ColorScheme = QStringLiteral("color-scheme");
const QString Contrast = QStringLiteral("contrast");
const QString ReducedMotion = QStringLiteral("reduced-motion");
const QString Animations = QStringLiteral("enable-animations");
const QString HighContrast = QStringLiteral("high-contrast");

struct Setting {
    const QString& group;
    const QString& key;
};

const Setting Settings[] = {{Appearance, ColorScheme},
                            {Appearance, Contrast},
                            {Appearance, ReducedMotion},
                            {Desktop, Animations},
                            {Accessibility, HighContrast}};

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
        bus.connect(DesktopPortal::Service, DesktopPortal::Path, Interface, QStringLiteral("SettingChanged"),
                    this, SLOT(settingChanged(QString, QString, QDBusVariant)));
        for (const Setting& setting : Settings)
            read(bus, setting.group, setting.key);
    }
}

void PortalInterfaceStyle::read(QDBusConnection& bus, const QString& group, const QString& key)
{
    QDBusMessage message = QDBusMessage::createMethodCall(DesktopPortal::Service, DesktopPortal::Path,
                                                          Interface, QStringLiteral("Read"));
    message.setArguments({group, key});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, group, key] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            take(group, key, reply.value().variant());
        watcher->deleteLater();
    });
}

void PortalInterfaceStyle::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    take(group, key, value.variant());
}

void PortalInterfaceStyle::take(const QString& group, const QString& key, const QVariant& value)
{
    // `Read` wraps its answer in one variant more than the signal does.
    QVariant plain = value;
    while (plain.userType() == qMetaTypeId<QDBusVariant>())
        plain = plain.value<QDBusVariant>().variant();
    const auto is = [&](const QString& otherGroup, const QString& otherKey) {
        return group == otherGroup && key == otherKey;
    };
    const bool before[] = {hasHighContrast(), reducesMotion()};
    if (is(Appearance, ColorScheme))
        takeScheme(plain.toUInt());
    else if (is(Appearance, Contrast))
        m_wantsContrast = plain.toUInt() == 1;
    else if (is(Appearance, ReducedMotion))
        m_wantsStillness = plain.toUInt() == 1;
    else if (is(Desktop, Animations))
        m_hasNoAnimations = plain.metaType() == QMetaType::fromType<bool>() && !plain.toBool();
    else if (is(Accessibility, HighContrast))
        m_hasContrastTheme = plain.toBool();
    if (before[0] != hasHighContrast() || before[1] != reducesMotion())
        emit changed();
}

void PortalInterfaceStyle::takeScheme(uint scheme)
{
    switch (scheme) {
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
