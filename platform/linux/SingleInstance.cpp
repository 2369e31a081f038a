// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include "platform/linux/ApplicationAdaptor.h"
#include "platform/linux/ApplicationIdentity.h"
#include "store/Console.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace giggle {

namespace {

// The other instance may be on its way in (locked, not yet on the bus) or on its way out.
constexpr int Attempts = 10;
constexpr unsigned long PauseInMilliseconds = 100;

constexpr int ReplyTimeoutInMilliseconds = 2000;

// What a Wayland compositor wants to see before it lets a window come to the front. Qt reads it from there.
constexpr const char* ActivationToken = "XDG_ACTIVATION_TOKEN";

void logMissingLock(const QString& path, int error)
{
    printFailure(QStringLiteral("A second instance will not be noticed: cannot lock %1: %2")
                     .arg(path, qt_error_string(error)));
}

} // namespace

SingleInstance::SingleInstance(QString lockPath, QDBusConnection bus, QObject* parent)
    : WindowActivation(parent), m_lockPath(std::move(lockPath)), m_bus(std::move(bus))
{
}

SingleInstance::~SingleInstance()
{
    if (m_onBus) {
        m_bus.unregisterService(ApplicationIdentity::applicationId());
        m_bus.unregisterObject(ApplicationIdentity::objectPath());
    }
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

SingleInstance::Outcome SingleInstance::start(const QUrl& document)
{
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (lock() == Lock::Held) {
            registerOnBus();
            return Outcome::First;
        }
        bool mayComeLater = true;
        if (showOther(document, mayComeLater))
            return Outcome::OtherShown;
        if (!mayComeLater)
            break;
        QThread::msleep(PauseInMilliseconds);
    }
    printFailure(QStringLiteral("%1 is already running.").arg(ApplicationIdentity::displayName()));
    return Outcome::OtherRunning;
}

SingleInstance::Lock SingleInstance::lock()
{
    const QByteArray path = QFile::encodeName(m_lockPath);
    m_descriptor = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_descriptor < 0 && (errno == EACCES || errno == EROFS))
        m_descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (m_descriptor < 0) {
        logMissingLock(m_lockPath, errno);
        return Lock::Held;
    }
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0)
        return Lock::Held;
    const int error = errno;
    ::close(std::exchange(m_descriptor, -1));
    if (error == EWOULDBLOCK)
        return Lock::Taken;
    logMissingLock(m_lockPath, error);
    return Lock::Held;
}

bool SingleInstance::showOther(const QUrl& document, bool& mayComeLater)
{
    if (!m_bus.isConnected())
        return false;
    QDBusMessage message = QDBusMessage::createMethodCall(
        ApplicationIdentity::applicationId(), ApplicationIdentity::objectPath(),
        QStringLiteral("org.freedesktop.Application"),
        document.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    QVariantMap platformData;
    if (qEnvironmentVariableIsSet(ActivationToken))
        platformData.insert(QStringLiteral("activation-token"), qEnvironmentVariable(ActivationToken));
    if (document.isEmpty())
        message.setArguments({platformData});
    else
        message.setArguments({QStringList{document.toString(QUrl::FullyEncoded)}, platformData});
    // Without this the bus might start a third instance to answer.
    message.setAutoStartService(false);
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, ReplyTimeoutInMilliseconds);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return true;
    const QDBusError::ErrorType error = QDBusError(reply).type();
    mayComeLater = error == QDBusError::ServiceUnknown || error == QDBusError::UnknownObject;
    return false;
}

void SingleInstance::registerOnBus()
{
    if (!m_bus.isConnected())
        return;
    new ApplicationAdaptor(this, [this](const QStringList& uris, const QVariantMap& platformData) {
        activate(uris, platformData);
    });
    // The object comes before the name: who finds the name finds the object. The name is somebody else's when
    // another collection of this user is open; that one keeps it.
    m_onBus = m_bus.registerObject(ApplicationIdentity::objectPath(), this);
    if (m_onBus)
        m_bus.registerService(ApplicationIdentity::applicationId());
}

void SingleInstance::activate(const QStringList& uris, const QVariantMap& platformData)
{
    const QByteArray token = platformData.value(QStringLiteral("activation-token")).toString().toUtf8();
    if (!token.isEmpty())
        qputenv(ActivationToken, token);
    emit activationRequested();
    if (!uris.isEmpty()) // of several the first one: there is one place for a file
        emit documentOpened(QUrl(uris.first()));
}

} // namespace giggle
