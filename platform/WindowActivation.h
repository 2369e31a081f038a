// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>

namespace giggle {

/// The system's wishes to the window that is already there. Lives in the main thread.
class WindowActivation : public QObject {
    Q_OBJECT

signals:
    /// The user started the application again: bring its window to the front.
    void activationRequested();

    /// The user opened a file with the application. activationRequested comes with it.
    void documentOpened(const QUrl& document);

protected:
    using QObject::QObject;
};

} // namespace giggle
