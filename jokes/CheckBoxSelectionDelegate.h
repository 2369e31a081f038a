// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

/// Hears of the check boxes in a list's rows.
class CheckBoxSelectionDelegate {
public:
    virtual ~CheckBoxSelectionDelegate() = default;

    /// The check box of the row @p indexPath was ticked or cleared.
    virtual void checkBoxSelectionChanged(bool isChecked, int indexPath) = 0;
};

} // namespace giggle
