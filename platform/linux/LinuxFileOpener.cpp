// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxFileOpener.h"

#include "platform/AddressOpener.h"
#include "platform/linux/PortalRequest.h"

#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>

#include <algorithm>
#include <utility>

namespace giggle {

LinuxFileOpener::LinuxFileOpener(AddressOpener& addressOpener, QDBusConnection bus)
    : m_addressOpener(addressOpener), m_bus(std::move(bus))
{
}

bool LinuxFileOpener::canOpen(const QString& path) const
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path);
    const QStringList names = QStringList(type.name()) + type.allAncestors();
    return std::any_of(names.begin(), names.end(),
                       [this](const QString& name) { return !m_associations.handlerOfType(name).isEmpty(); });
}

void LinuxFileOpener::open(const QString& path, std::function<void(const QString& failure)> finished)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        finishLater(QStringLiteral("The file \"%1\" cannot be read: %2").arg(path, file.errorString()),
                    std::move(finished));
        return;
    }
    if (!PortalRequest::takesFiles(m_bus)) {
        openByAddress(path, std::move(finished));
        return;
    }
    const PortalRequest::Call call{QStringLiteral("OpenURI"),
                                   QStringLiteral("OpenFile"),
                                   {QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()))},
                                   {{QStringLiteral("ask"), true}}};
    PortalRequest::send(m_bus, call, this,
                        [this, path, finished](PortalRequest::Outcome outcome, const QVariantMap&) {
                            if (outcome == PortalRequest::Outcome::Failed)
                                openByAddress(path, finished);
                            else
                                finished({});
                        });
}

void LinuxFileOpener::openByAddress(const QString& path, Finished finished)
{
    QString failure;
    // The desktop says that it has opened an address as soon as it starts to look for a program.
    if (!canOpen(path) || !m_addressOpener.open(QUrl::fromLocalFile(path)))
        failure = QStringLiteral("No program could be opened for \"%1\".").arg(QFileInfo(path).fileName());
    finishLater(failure, std::move(finished));
}

void LinuxFileOpener::finishLater(const QString& failure, Finished finished)
{
    QMetaObject::invokeMethod(
        this, [failure, finished = std::move(finished)] { finished(failure); }, Qt::QueuedConnection);
}

} // namespace giggle
