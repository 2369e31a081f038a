// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <optional>

#include <gtest/gtest.h>

namespace giggle {

/// A desktop portal that takes every request, writes down what it was asked, and answers as it is told.
class FakeRequestPortal : public QDBusVirtualObject {
public:
    explicit FakeRequestPortal(QDBusConnection bus, QStringList versions = {})
        : interfaces(std::move(versions)), m_bus(std::move(bus))
    {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                    QDBusConnection::SubPath);
        m_bus.registerService(service());
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        if (message.interface() == QLatin1StringView("org.freedesktop.DBus.Properties"))
            return tellVersion(message);
        method = message.interface() + u'.' + message.member();
        if (method.endsWith(QLatin1StringView(".Close")))
            return true;
        options = qdbus_cast<QVariantMap>(message.arguments().last());
        if (const QVariant subject = message.arguments().at(1); subject.canConvert<QDBusUnixFileDescriptor>())
            take(subject.value<QDBusUnixFileDescriptor>());
        else
            title = subject.toString();
        for (const auto& file :
             qdbus_cast<QList<QDBusUnixFileDescriptor>>(options.take(QStringLiteral("attachment_fds"))))
            take(file);
        handle = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                     .arg(isOld ? QStringLiteral("old") : message.service().mid(1).replace(u'.', u'_'),
                          options.take(QStringLiteral("handle_token")).toString());
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(handle))));
        if (response)
            respond(*response);
        return true;
    }

    void respond(uint code)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            handle, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal.setArguments({code, results});
        m_bus.send(signal);
    }

    void leave() { m_bus.unregisterService(service()); }

    std::optional<uint> response = 0; ///< at once, or none
    bool isOld = false;               ///< makes up its own names of requests
    QVariantMap results;
    QStringList interfaces; ///< those of which it tells the version

    QString method; ///< the last one, behind its interface
    QString title;  ///< where it is asked for a dialog
    int versionsAsked = 0;
    QString handle;
    QVariantMap options; ///< less the token and the files
    QByteArrayList contents;
    QList<QFileInfo> files;

private:
    bool tellVersion(const QDBusMessage& question)
    {
        ++versionsAsked;
        const bool isKnown = interfaces.contains(question.arguments().value(0).toString());
        m_bus.send(isKnown ? question.createReply(QVariant::fromValue(QDBusVariant(3U)))
                           : question.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("unknown")));
        return true;
    }

    static QString service() { return QStringLiteral("org.freedesktop.portal.Desktop"); }

    void take(const QDBusUnixFileDescriptor& descriptor)
    {
        QFile file;
        ASSERT_TRUE(file.open(descriptor.fileDescriptor(), QIODevice::ReadOnly));
        contents.append(file.readAll());
        files.append(QFileInfo(
            QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor.fileDescriptor()))));
    }

    QDBusConnection m_bus;
};

} // namespace giggle
