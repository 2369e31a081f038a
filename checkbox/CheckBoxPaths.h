// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/CheckBoxStyle.h"

#include <QPainterPath>
#include <QPolygonF>

namespace giggle {

/// The box's edge in @p bounds, closed. It begins in the middle of the top and runs clockwise, which is how
/// it is traced. A corner radius that does not fit is made smaller.
[[nodiscard]] QPainterPath boxPath(const QRectF& bounds, BoxShape shape, double cornerRadius);

/// The middle of the mark's line, in a box with sides of length 1: always three points, the second one its
/// corner or middle, so that one mark can turn into another; none for an unchecked box.
[[nodiscard]] QPolygonF markLine(BoxState state);

/// A line that winds from the edge of a box with sides of length 1 into @p mark, and then is that mark.
[[nodiscard]] QPolygonF spiralInto(const QPolygonF& mark);

[[nodiscard]] double lengthOf(const QPolygonF& line);

/// The piece of a line between two shares of its length, 0 to 1. Never empty for a line that is not: where
/// nothing lies between, it is a point.
[[nodiscard]] QPolygonF partOf(const QPolygonF& line, double from, double to);

/// @p share of the way from one line to another with as many points.
[[nodiscard]] QPolygonF between(const QPolygonF& from, const QPolygonF& to, double share);

} // namespace giggle
