// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/CheckBoxAnimation.h"

#include <QImage>

class QPainter;

namespace giggle {

/// Draws a box into the square from (0, 0) to (@p side, @p side). Lines are sharp where a unit of the painter
/// is a pixel, and the side and the width of the box's line are whole numbers.
void paintCheckBox(QPainter& painter, const CheckBoxFrame& frame, const CheckBoxStyle& style, double side);

/// A box at rest, @p side pixels wide, lengths of the style in pixels. Boxes that look the same share their
/// pictures. May be called from any thread.
[[nodiscard]] QImage restPicture(BoxState state, const CheckBoxStyle& style, int side);

} // namespace giggle
