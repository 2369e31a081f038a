// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// Where a page's list is to stand, in the table's present rows.
struct TablePlace {
    Q_GADGET
    QML_VALUE_TYPE(tablePlace)
    Q_PROPERTY(int topRow MEMBER topRow CONSTANT)
    Q_PROPERTY(double offset MEMBER offset CONSTANT)
    Q_PROPERTY(int currentRow MEMBER currentRow CONSTANT)

public:
    int topRow = -1;     ///< the first row in sight, or -1 when the list was not left anywhere
    double offset = 0;   ///< how many pixels of it are out of sight; less than 0 when there is room above it
    int currentRow = -1; ///< the row that keys act on, or -1

    bool operator==(const TablePlace&) const = default;
};

} // namespace giggle
