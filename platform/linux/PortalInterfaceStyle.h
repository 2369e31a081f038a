// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InterfaceStyle.h"

#include <QDBusConnection>
#include <QDBusVariant>

namespace giggle {

/// What the desktop's settings portal says, followed live. Without a portal, until it answers, and where the
/// user has no preference there, the application's palette decides between light and dark, contrast is the
/// usual one, and things move. Nothing here waits for the portal. Needs a QGuiApplication.
class PortalInterfaceStyle : public InterfaceStyle {
    Q_OBJECT

public:
    explicit PortalInterfaceStyle(QDBusConnection bus = QDBusConnection::sessionBus(),
                                  QObject* parent = nullptr);

    [[nodiscard]] Style current() const override { return m_current; }

    [[nodiscard]] bool hasHighContrast() const override { return m_wantsContrast || m_hasContrastTheme; }

    [[nodiscard]] bool reducesMotion() const override { return m_wantsStillness || m_hasNoAnimations; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void read(QDBusConnection& bus, const QString& group, const QString& key);
    void take(const QString& group, const QString& key, const QVariant& value);
    void takeScheme(uint scheme);
    void update();

    Style m_scheme = Style::Unspecified; ///< The portal's last word.
    Style m_current = Style::Unspecified;

    // Newer portals have a key of their own for what older ones pass on of one desktop alone.
    bool m_wantsContrast = false;
    bool m_hasContrastTheme = false;
    bool m_wantsStillness = false;
    bool m_hasNoAnimations = false;
};

} // namespace giggle
