// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemFileDialog.h"

#include <QDBusConnection>
#include <QObject>
#include <QPointer>

namespace giggle {

class PortalRequest;

/// The file dialog of the desktop's portal. Portals without a file dialog exist: it counts as offered once
/// the portal has named its version, which is asked for at the start and whenever a portal appears.
class PortalFileDialog : public QObject, public SystemFileDialog {
public:
    explicit PortalFileDialog(QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] bool isOffered() const override { return m_isOffered; }

    void open(const Request& request, Answer answer) override;
    void close() override;

private:
    void askForVersion();

    QDBusConnection m_bus;
    QPointer<PortalRequest> m_request;
    bool m_isOffered = false;
};

} // namespace giggle
