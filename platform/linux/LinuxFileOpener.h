// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FileOpener.h"
#include "platform/linux/DesktopAssociations.h"

#include <QDBusConnection>
#include <QObject>

namespace giggle {

class AddressOpener;

/// Opens files through the desktop's portal, which asks for the program, else with the program of the user's
/// associations.
class LinuxFileOpener : public QObject, public FileOpener {
public:
    /// @p addressOpener outlives the opener.
    explicit LinuxFileOpener(AddressOpener& addressOpener,
                             QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] bool canOpen(const QString& path) const override;

    void open(const QString& path, std::function<void(const QString& failure)> finished) override;

private:
    using Finished = std::function<void(const QString& failure)>;

    void openByAddress(const QString& path, Finished finished);
    void finishLater(const QString& failure, Finished finished);

    AddressOpener& m_addressOpener;
    DesktopAssociations m_associations;
    QDBusConnection m_bus;
};

} // namespace giggle
