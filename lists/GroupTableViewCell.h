// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// One name of a group screen with the number of its jokes, as it is drawn.
class GroupTableViewCell {
    Q_GADGET
    QML_VALUE_TYPE(groupTableViewCell)
    Q_PROPERTY(QString NameLabel MEMBER NameLabel CONSTANT)
    Q_PROPERTY(QString CountLabel MEMBER CountLabel CONSTANT)
    Q_PROPERTY(QString accessibleName READ accessibleName CONSTANT)

public:
    QString NameLabel;
    QString CountLabel;

    /// Name and count, for a screen reader. An empty name is told in words.
    [[nodiscard]] QString accessibleName() const;
};

} // namespace giggle
