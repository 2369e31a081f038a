// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace giggle {

/// The application's object on the session bus, in the form that desktop entries call for.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// @p uris is empty when the window alone is wanted.
    using Handler = std::function<void(const QStringList& uris, const QVariantMap& platformData)>;

    /// Becomes a child of @p object, under which the bus sees it. @p activate is called in its thread.
    ApplicationAdaptor(QObject* object, Handler activate);

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);

private:
    Handler m_activate;
};

} // namespace giggle
