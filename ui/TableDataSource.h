// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

namespace giggle {

/// What a screen shows in a table of one section. Rows are numbered from 0.
class TableDataSource {
public:
    virtual ~TableDataSource() = default;

    [[nodiscard]] virtual int numberOfRows() const = 0;

    /// The cell of a row: a value type (gadget) that the page's delegate draws.
    [[nodiscard]] virtual QVariant cellForRow(int row) const = 0;

    /// The text above the rows.
    [[nodiscard]] virtual QString headerText() const = 0;
};

} // namespace giggle
