// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/CheckBoxSelectionDelegate.h"

namespace giggle {

/// Hears of the check boxes in the rows of a breakdown, and stores what they say.
class GroupedCheckBoxSelectionDelegate : public CheckBoxSelectionDelegate {};

} // namespace giggle
