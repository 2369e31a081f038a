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

/// A desktop portal that knows some values, takes every request, writes down what it was asked, and answers
/// as it is told.
class FakePortal : public QDBusVirtualObject {
public:
    /// @p values are versions of interfaces and settings: "<interface or group> <name>".
    explicit FakePortal(QDBusConnection bus, QVariantMap values = {})
        : m_bus(std::move(bus)), m_values(std::move(values))
    {
        m_bus.registerVirtualObject(Path, this, QDBusConnection::SubPath);
        m_bus.registerService(Service);
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        if (message.signature() == QLatin1StringView("ss"))
            return tellValue(message);
        method = message.interface() + u'.' + message.member();
        if (method.endsWith(QLatin1StringView(".Close")))
            return true;
        options = qdbus_cast<QVariantMap>(message.arguments().last());
        if (const QVariant subject = message.arguments().at(1); subject.canConvert<QDBusUnixFileDescriptor>())
            take(subject.value<QDBusUnixFileDescriptor>());
        for (const auto& file :
             qdbus_cast<QList<QDBusUnixFileDescriptor>>(options.take(QStringLiteral("attachment_fds"))))
            take(file);
        handle = Path + QStringLiteral("/request/%1/%2")
                            .arg(isOld ? QStringLiteral("old") : message.service().mid(1).replace(u'.', u'_'),
                                 options.take(QStringLiteral("handle_token")).toString());
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(handle))));
        if (response)
            respond(*response);
        return true;
    }

    void respond(uint code) { emitSignal(handle, "Request", "Response", {code, results}); }

    void change(const QString& group, const QString& key, const QVariant& value)
    {
        emitSignal(Path, "Settings", "SettingChanged",
                   {group, key, QVariant::fromValue(QDBusVariant(value))});
    }

    void leave() { m_bus.unregisterService(Service); }

    std::optional<uint> response = 0; ///< at once, or none
    bool isOld = false;               ///< makes up its own names of requests
    QVariantMap results;

    QString method; ///< the last one, behind its interface
    int valuesAsked = 0;
    QString handle;
    QVariantMap options; ///< less the token and the files
    QByteArrayList contents;
    QList<QFileInfo> files;

private:
    bool tellValue(const QDBusMessage& question)
    {
        ++valuesAsked;
        const QVariantList name = question.arguments();
        const QVariant value = m_values.value(name[0].toString() + u' ' + name[1].toString());
        // As settings are read, in two wrappers.
        const QVariant wrapped = QVariant::fromValue(QDBusVariant(value));
        return m_bus.send(
            value.isValid() ? question.createReply(QVariant::fromValue(QDBusVariant(wrapped)))
                            : question.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("unknown")));
    }

    void emitSignal(const QString& path, const char* interface, const char* name,
                    const QVariantList& arguments)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.portal.") + QLatin1StringView(interface),
            QLatin1StringView(name));
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    void take(const QDBusUnixFileDescriptor& descriptor)
    {
        QFile file;
        ASSERT_TRUE(file.open(descriptor.fileDescriptor(), QIODevice::ReadOnly));
        contents.append(file.readAll());
        files.append(QFileInfo(
            QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor.fileDescriptor()))));
    }

    inline static const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
    inline static const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");

    QDBusConnection m_bus;
    QVariantMap m_values;
};

} // namespace giggle
