// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

class QDBusPendingCallWatcher;

namespace giggle {

/// One request to the desktop's portal: a method call, and the answer that comes as a signal once the user is
/// done. Nothing here waits for the portal. The object deletes itself with the answer.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        Done,
        Cancelled, ///< by the user
        Failed,    ///< There is no such portal, it could not, or it went away meanwhile.
    };

    /// @p results is what the request's own documentation says; empty unless it is done.
    using Answer = std::function<void(Outcome outcome, const QVariantMap& results)>;

    struct Call {
        QString interface; ///< the last part of its name
        QString method;
        QVariantList arguments; ///< those between the parent window and the options
        QVariantMap options;
    };

    /// Calls @p answer once, later; never when @p parent is gone by then. The request returned is there until
    /// it is answered or closed.
    static PortalRequest* send(const QDBusConnection& bus, const Call& call, QObject* parent, Answer answer);

    /// Gives the request up: has the portal put its dialog away, and calls nobody.
    void close();

    /// Whether file descriptors can be among the arguments.
    [[nodiscard]] static bool takesFiles(const QDBusConnection& bus);

private slots:
    void responded(uint response, const QVariantMap& results);

private:
    PortalRequest(QDBusConnection bus, QObject* parent, Answer answer);

    void start(const Call& call);
    void called(QDBusPendingCallWatcher* watcher);
    void listen(const QString& handle);
    void finish(Outcome outcome, const QVariantMap& results = {});

    QDBusConnection m_bus;
    Answer m_answer;
    QString m_handle;
};

} // namespace giggle
