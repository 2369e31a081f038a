// SPDX-License-Identifier: MIT
#include "checkbox/CheckBoxPainting.h"

#include "checkbox/CheckBoxPaths.h"

#include <QPainter>

#include <algorithm>

namespace giggle {

namespace {

QPen roundPen(const QColor& color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void paintGround(QPainter& painter, const CheckBoxFrame& frame, const CheckBoxStyle& style,
                 const QPainterPath& box, const QPointF& middle)
{
    painter.fillPath(box, style.uncheckedFill);
    if (frame.ground <= 0 || frame.groundScale <= 0)
        return;
    painter.save();
    painter.setOpacity(painter.opacity() * std::min(1.0, frame.ground));
    painter.translate(middle);
    painter.scale(frame.groundScale, frame.groundScale);
    painter.translate(-middle);
    painter.fillPath(box, style.tint);
    painter.restore();
}

void paintOutline(QPainter& painter, double share, const CheckBoxStyle& style, const QRectF& bounds)
{
    if (share <= 0)
        return;
    const double inset = 1.5 * style.boxLineWidth;
    const QPainterPath inside =
        boxPath(bounds.adjusted(inset, inset, -inset, -inset), style.shape, style.cornerRadius - inset);
    painter.setPen(roundPen(style.tint, style.boxLineWidth));
    painter.drawPolyline(partOf(inside.toFillPolygon(), 0, share));
}

void paintMark(QPainter& painter, const MarkStroke& mark, const CheckBoxStyle& style, double side)
{
    const double width = mark.width * style.markLineWidth;
    if (mark.line.isEmpty() || width <= 0 || mark.opacity <= 0)
        return;
    const QPolygonF line = QTransform::fromScale(side, side).map(partOf(mark.line, mark.from, mark.to));
    painter.save();
    painter.setOpacity(painter.opacity() * std::min(1.0, mark.opacity));
    if (lengthOf(line) < width / 100) {
        // A line that short would not be drawn at all, not even its round ends.
        painter.setPen(Qt::NoPen);
        painter.setBrush(style.mark);
        painter.drawEllipse(line.first(), width / 2, width / 2);
    } else {
        painter.setPen(roundPen(style.mark, width));
        painter.drawPolyline(line);
    }
    painter.restore();
}

} // namespace

void paintCheckBox(QPainter& painter, const CheckBoxFrame& frame, const CheckBoxStyle& style, double side)
{
    const QRectF bounds(0, 0, side, side);
    const double inset = style.boxLineWidth / 2;
    const QPainterPath box =
        boxPath(bounds.adjusted(inset, inset, -inset, -inset), style.shape, style.cornerRadius - inset);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(bounds.center());
    painter.scale(frame.boxScale, frame.boxScale);
    painter.translate(-bounds.center());
    paintGround(painter, frame, style, box, bounds.center());
    paintOutline(painter, frame.outline, style, bounds);
    if (style.boxLineWidth > 0)
        painter.strokePath(box, QPen(style.secondary, style.boxLineWidth));
    for (const MarkStroke& mark : frame.marks)
        paintMark(painter, mark, style, side);
    painter.restore();
}

} // namespace giggle
