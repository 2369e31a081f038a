// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/CheckBoxStyle.h"

#include <QPolygonF>

#include <vector>

namespace giggle {

/// A mark, or what becomes one; places are in a box with sides of length 1.
struct MarkStroke {
    QPolygonF line;
    double from = 0; ///< the piece that is drawn, in shares of the line's length
    double to = 1;
    double opacity = 1;
    double width = 1; ///< in widths of the style's mark line
};

/// What is to be drawn of a box at one moment, for any style and size.
struct CheckBoxFrame {
    double boxScale = 1;    ///< of everything, about the middle; at most 1
    double ground = 0;      ///< the opacity of the tint on the box's ground
    double groundScale = 1; ///< the tinted part of the ground, about the middle
    double outline = 0;     ///< how far a tinted line runs along the inside of the box's edge
    std::vector<MarkStroke> marks;
};

/// The box at rest.
[[nodiscard]] CheckBoxFrame restFrame(BoxState state);

/// A way from one state to another. Pure: keeps nothing between frames, and the way back is the way there in
/// reverse, so that an animation can turn round anywhere.
class CheckBoxAnimation {
public:
    virtual ~CheckBoxAnimation() = default;

    /// The moment @p progress, 0 to 1, of the way; beyond both ends the box rests.
    [[nodiscard]] CheckBoxFrame frame(BoxState from, BoxState to, double progress) const;

protected:
    /// From an unchecked box to @p state; 0 < @p t < 1.
    [[nodiscard]] virtual CheckBoxFrame appear(BoxState state, double t) const = 0;

    /// From one mark to another; 0 < @p t < 1. One line bends into the other unless this is overridden.
    [[nodiscard]] virtual CheckBoxFrame change(BoxState from, BoxState to, double t) const;
};

/// The animation of that kind; lives as long as the program. Strokes for an unknown one.
[[nodiscard]] const CheckBoxAnimation& checkBoxAnimation(AnimationKind kind);

} // namespace giggle
