// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// One row of the rating list, as it is drawn.
class RatingTableViewCell {
    Q_GADGET
    QML_VALUE_TYPE(ratingTableViewCell)
    Q_PROPERTY(QString RatingNameLabel MEMBER RatingNameLabel CONSTANT)

public:
    QString RatingNameLabel;
};

} // namespace giggle
