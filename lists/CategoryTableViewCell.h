// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// One row of the category list, as it is drawn.
class CategoryTableViewCell {
    Q_GADGET
    QML_VALUE_TYPE(categoryTableViewCell)
    Q_PROPERTY(QString CategoryNameLabel MEMBER CategoryNameLabel CONSTANT)

public:
    QString CategoryNameLabel;
};

} // namespace giggle
