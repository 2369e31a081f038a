// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ListPlace.h"

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

    /// What tells the row from all others, for a list that is to be found where it was left.
    [[nodiscard]] virtual RowIdentity identityOfRow(int) const { return NoIdentity; }

    /// The text above the rows.
    [[nodiscard]] virtual QString headerText() const = 0;
};

} // namespace giggle
