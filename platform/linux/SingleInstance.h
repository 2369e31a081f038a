// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WindowActivation.h"

#include <QDBusConnection>
#include <QString>

namespace giggle {

/// Sees to it that one process at a time works with a collection. The lock is the kernel's, on a file beside
/// the collection, so it ends with the process however that ends. The first instance is also the application
/// on the session bus, where a second one asks it to show its window and hands over what it was to open.
class SingleInstance : public WindowActivation {
    Q_OBJECT

public:
    enum class Outcome {
        First,        ///< Go on: the lock is held, or cannot be had here at all.
        OtherShown,   ///< Another instance runs and brings its window to the front.
        OtherRunning, ///< Another instance runs and cannot be reached; standard error says so.
    };

    /// Does nothing yet. @p lockPath is made when it is missing; its folder must exist.
    explicit SingleInstance(QString lockPath, QDBusConnection bus = QDBusConnection::sessionBus(),
                            QObject* parent = nullptr);

    /// Gives the lock and the name back. It must outlive the open collection.
    ~SingleInstance() override;

    /// Call it once, before the collection is opened. It takes up to a few seconds when another instance runs
    /// that does not answer. No bus, a file system without locks and a folder that cannot be written to are
    /// no errors: the program then starts as the first instance, and a lock that is missing is logged. If
    /// there is a @p document, another instance is to open it.
    Outcome start(const QUrl& document = {});

private:
    enum class Lock { Held, Taken };

    Lock lock();
    bool showOther(const QUrl& document, bool& mayComeLater);
    void registerOnBus();
    void activate(const QStringList& uris, const QVariantMap& platformData);

    QString m_lockPath;
    QDBusConnection m_bus;
    int m_descriptor = -1;
    bool m_onBus = false;
};

} // namespace giggle
