// SPDX-License-Identifier: MIT
#include "platform/linux/PortalRequest.h"

#include "platform/linux/DesktopPortal.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QUuid>
#include <QWindow>

#include <utility>

namespace giggle {

namespace {

/// Names the window that a dialog of the portal belongs to, where its name can be had.
QString parentWindow()
{
    const QWindow* const window = QGuiApplication::focusWindow();
    if (!window || QGuiApplication::platformName() != QLatin1StringView("xcb"))
        return {};
    return QStringLiteral("x11:") + QString::number(window->winId(), 16);
}

} // namespace

PortalRequest* PortalRequest::send(const QDBusConnection& bus, const Call& call, QObject* parent,
                                   Answer answer)
{
    auto* const request = new PortalRequest(bus, parent, std::move(answer));
    if (bus.isConnected())
        request->start(call);
    else
        QMetaObject::invokeMethod(
            request, [request] { request->finish(Outcome::Failed); }, Qt::QueuedConnection);
    return request;
}

bool PortalRequest::takesFiles(const QDBusConnection& bus)
{
    return bus.isConnected() && bus.connectionCapabilities() & QDBusConnection::UnixFileDescriptorPassing;
}

PortalRequest::PortalRequest(QDBusConnection bus, QObject* parent, Answer answer)
    : QObject(parent), m_bus(std::move(bus)), m_answer(std::move(answer))
{
}

void PortalRequest::start(const Call& call)
{
    // The portal makes the name of the answering object from the two, so that listening can come first.
    const QString token = QStringLiteral("giggle_") + QUuid::createUuid().toString(QUuid::Id128);
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    listen(DesktopPortal::Path + QStringLiteral("/request/%1/%2").arg(sender, token));

    auto* const presence = new QDBusServiceWatcher(DesktopPortal::Service, m_bus,
                                                   QDBusServiceWatcher::WatchForUnregistration, this);
    connect(presence, &QDBusServiceWatcher::serviceUnregistered, this, [this] { finish(Outcome::Failed); });

    QVariantMap options = call.options;
    options.insert(QStringLiteral("handle_token"), token);
    QDBusMessage message =
        QDBusMessage::createMethodCall(DesktopPortal::Service, DesktopPortal::Path,
                                       DesktopPortal::interfaceName(call.interface), call.method);
    message.setArguments(QVariantList{parentWindow()} + call.arguments + QVariantList{options});
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &PortalRequest::called);
}

void PortalRequest::called(QDBusPendingCallWatcher* watcher)
{
    const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
    if (!reply.isValid())
        finish(Outcome::Failed);
    else if (reply.value().path() != m_handle) // an old portal, which knows no tokens
        listen(reply.value().path());
}

void PortalRequest::listen(const QString& handle)
{
    m_handle = handle;
    // The path is the portal's and nobody else knows it: the sender need not be looked up, which would wait.
    m_bus.connect(QString(), handle, DesktopPortal::interfaceName(QStringLiteral("Request")),
                  QStringLiteral("Response"), this, SLOT(responded(uint, QVariantMap)));
}

void PortalRequest::close()
{
    if (!std::exchange(m_answer, {}))
        return;
    m_bus.send(QDBusMessage::createMethodCall(DesktopPortal::Service, m_handle,
                                              DesktopPortal::interfaceName(QStringLiteral("Request")),
                                              QStringLiteral("Close")));
    deleteLater();
}

void PortalRequest::responded(uint response, const QVariantMap& results)
{
    constexpr uint done = 0;
    constexpr uint cancelled = 1;
    if (response == done)
        finish(Outcome::Done, results);
    else
        finish(response == cancelled ? Outcome::Cancelled : Outcome::Failed);
}

void PortalRequest::finish(Outcome outcome, const QVariantMap& results)
{
    if (const Answer answer = std::exchange(m_answer, {})) {
        deleteLater();
        answer(outcome, results);
    }
}

} // namespace giggle
