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

#include <optional>

#include <gtest/gtest.h>

namespace giggle {

/// A desktop portal that takes every request, writes down what it was asked, and answers as it is told.
class FakeRequestPortal : public QDBusVirtualObject {
public:
    explicit FakeRequestPortal(QDBusConnection bus) : m_bus(std::move(bus))
    {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this);
        m_bus.registerService(service());
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        interface = message.interface();
        method = message.member();
        options = qdbus_cast<QVariantMap>(message.arguments().last());
        if (message.arguments().size() == 3)
            take(message.arguments().at(1).value<QDBusUnixFileDescriptor>());
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
        signal.setArguments({code, QVariantMap()});
        m_bus.send(signal);
    }

    void leave() { m_bus.unregisterService(service()); }

    std::optional<uint> response = 0; ///< at once, or none
    bool isOld = false;               ///< makes up its own names of requests

    QString interface;
    QString method;
    QString handle;
    QVariantMap options; ///< less the token and the files
    QByteArrayList contents;
    QList<QFileInfo> files;

private:
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
