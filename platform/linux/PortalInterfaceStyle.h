// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InterfaceStyle.h"

#include <QDBusConnection>
#include <QDBusVariant>

namespace giggle {

/// The colour scheme of the desktop's settings portal, followed live. Without a portal, until it answers, and
/// where the user has no preference there, the application's palette decides. Nothing here waits for the
/// portal. Needs a QGuiApplication.
class PortalInterfaceStyle : public InterfaceStyle {
    Q_OBJECT

public:
    explicit PortalInterfaceStyle(QDBusConnection bus = QDBusConnection::sessionBus(),
                                  QObject* parent = nullptr);

    Style current() const override { return m_current; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readScheme(QDBusConnection& bus);
    void takeScheme(const QVariant& value);
    void update();

    Style m_scheme = Style::Unspecified; ///< The portal's last word.
    Style m_current = Style::Unspecified;
};

} // namespace giggle
