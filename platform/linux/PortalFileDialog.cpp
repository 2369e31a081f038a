// SPDX-License-Identifier: MIT
#include "platform/linux/PortalFileDialog.h"

#include "platform/linux/DesktopPortal.h"
#include "platform/linux/PortalRequest.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QFile>

#include <utility>

namespace giggle {

namespace {

const QString FileChooser = QStringLiteral("FileChooser");

// A portal that is only being started announces itself when it is there.
constexpr int PatienceMilliseconds = 2000;

PortalRequest::Call callFor(const SystemFileDialog::Request& request)
{
    QVariantMap options{{QStringLiteral("modal"), true}};
    if (request.folder.isLocalFile())
        options.insert(QStringLiteral("current_folder"),
                       QFile::encodeName(request.folder.toLocalFile()).append('\0'));
    if (!request.suggestedName.isEmpty())
        options.insert(QStringLiteral("current_name"), request.suggestedName);
    const QString method =
        request.suggestedName.isEmpty() ? QStringLiteral("OpenFile") : QStringLiteral("SaveFile");
    return {FileChooser, method, {request.title}, options};
}

/// Nothing where the portal names no file that could be read or written as one.
std::optional<QUrl> chosenFile(const QVariantMap& results)
{
    const QUrl file(results.value(QStringLiteral("uris")).toStringList().value(0));
    return file.isLocalFile() ? std::optional(file) : std::nullopt;
}

} // namespace

PortalFileDialog::PortalFileDialog(QDBusConnection bus) : m_bus(std::move(bus))
{
    if (!m_bus.isConnected())
        return;
    auto* const presence = new QDBusServiceWatcher(DesktopPortal::Service, m_bus,
                                                   QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(presence, &QDBusServiceWatcher::serviceRegistered, this, &PortalFileDialog::askForVersion);
    connect(presence, &QDBusServiceWatcher::serviceUnregistered, this, [this] { m_isOffered = false; });
    askForVersion();
}

void PortalFileDialog::askForVersion()
{
    QDBusMessage message = QDBusMessage::createMethodCall(DesktopPortal::Service, DesktopPortal::Path,
                                                          QStringLiteral("org.freedesktop.DBus.Properties"),
                                                          QStringLiteral("Get"));
    message.setArguments({DesktopPortal::interfaceName(FileChooser), QStringLiteral("version")});
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, PatienceMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> version = *watcher;
        // An answer that comes too late must not take back a newer one.
        if (version.isValid())
            m_isOffered = true;
        watcher->deleteLater();
    });
}

void PortalFileDialog::open(const Request& request, Answer answer)
{
    m_request = PortalRequest::send(
        m_bus, callFor(request), this,
        [answer = std::move(answer)](PortalRequest::Outcome outcome, const QVariantMap& results) {
            if (outcome == PortalRequest::Outcome::Done)
                answer(chosenFile(results));
            else if (outcome == PortalRequest::Outcome::Cancelled)
                answer(QUrl());
            else
                answer(std::nullopt);
        });
}

void PortalFileDialog::close()
{
    if (m_request)
        m_request->close();
}

} // namespace giggle
