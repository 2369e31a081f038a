// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace giggle {

enum class BoxState { Unchecked, Checked, Mixed };
enum class BoxShape { Square, Circle };
enum class AnimationKind { Stroke, Fill, Bounce, Expand, Flat, Spiral, Fade, Dot };

/// How a box looks. Lengths are in the units of whoever draws it.
struct CheckBoxStyle {
    BoxShape shape = BoxShape::Square;
    double cornerRadius = 6; ///< of the box's outer edge; a circle has none
    double boxLineWidth = 2;
    double markLineWidth = 3;
    QColor tint{0x00, 0x26, 0xa6};   ///< the ground of a box that is checked or mixed
    QColor uncheckedFill{Qt::white}; ///< the ground of any other
    QColor secondary{Qt::black};     ///< the line around the box
    QColor mark{Qt::white};

    friend bool operator==(const CheckBoxStyle&, const CheckBoxStyle&) = default;
};

} // namespace giggle
