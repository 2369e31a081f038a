// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/CheckBoxAnimation.h"

class QPainter;

namespace giggle {

/// Draws a box into the square from (0, 0) to (@p side, @p side). Lines are sharp where a unit of the painter
/// is a pixel, and the side and the width of the box's line are whole numbers.
void paintCheckBox(QPainter& painter, const CheckBoxFrame& frame, const CheckBoxStyle& style, double side);

} // namespace giggle
