// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// How one row of a picker is drawn where the rows do not all look the same. The font's pixel size is the one
/// at the usual size of texts.
struct PickerRowLook {
    Q_GADGET
    QML_VALUE_TYPE(pickerRowLook)
    Q_PROPERTY(QFont font MEMBER font CONSTANT)
    Q_PROPERTY(QColor ink MEMBER ink CONSTANT)
    Q_PROPERTY(QColor ground MEMBER ground CONSTANT)

public:
    QFont font;
    QColor ink = Qt::black;
    QColor ground = Qt::white;

    bool operator==(const PickerRowLook&) const = default;
};

} // namespace giggle
