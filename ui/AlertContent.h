// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// What a page needs to draw the alert on show. Actions are answered by their position.
struct AlertContent {
    Q_GADGET
    QML_VALUE_TYPE(alertContent)
    Q_PROPERTY(bool shown MEMBER shown CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QString message MEMBER message CONSTANT)
    Q_PROPERTY(QStringList actions MEMBER actions CONSTANT)
    Q_PROPERTY(int cancelAction MEMBER cancelAction CONSTANT)

public:
    bool shown = false;
    QString title;
    QString message;
    QStringList actions;
    int cancelAction = -1; ///< what Escape presses; a single action is one

    bool operator==(const AlertContent&) const = default;
};

} // namespace giggle
