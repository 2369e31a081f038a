// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace giggle {

/// The system's wish to see the window that is already there. Lives in the main thread.
class WindowActivation : public QObject {
    Q_OBJECT

signals:
    /// The user started the application again: bring its window to the front.
    void activationRequested();

protected:
    using QObject::QObject;
};

} // namespace giggle
