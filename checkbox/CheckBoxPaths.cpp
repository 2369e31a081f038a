// SPDX-License-Identifier: MIT
#include "checkbox/CheckBoxPaths.h"

#include <QLineF>
#include <QTransform>

#include <algorithm>

namespace giggle {

namespace {

constexpr QPointF Middle(0.5, 0.5);

QPointF onLine(const QPointF& from, const QPointF& to, double share)
{
    return from + (to - from) * share;
}

} // namespace

QPainterPath boxPath(const QRectF& bounds, BoxShape shape, double cornerRadius)
{
    const double largest = std::min(bounds.width(), bounds.height()) / 2;
    const double radius = shape == BoxShape::Circle ? largest : std::clamp(cornerRadius, 0.0, largest);
    const double arc = 2 * radius;
    QPainterPath path(QPointF(bounds.center().x(), bounds.top()));
    path.lineTo(bounds.right() - radius, bounds.top());
    path.arcTo(bounds.right() - arc, bounds.top(), arc, arc, 90, -90);
    path.lineTo(bounds.right(), bounds.bottom() - radius);
    path.arcTo(bounds.right() - arc, bounds.bottom() - arc, arc, arc, 0, -90);
    path.lineTo(bounds.left() + radius, bounds.bottom());
    path.arcTo(bounds.left(), bounds.bottom() - arc, arc, arc, 270, -90);
    path.lineTo(bounds.left(), bounds.top() + radius);
    path.arcTo(bounds.left(), bounds.top(), arc, arc, 180, -90);
    path.closeSubpath();
    return path;
}

QPolygonF markLine(BoxState state)
{
    switch (state) {
    case BoxState::Checked:
        return {{0.255, 0.53}, {0.43, 0.705}, {0.755, 0.305}};
    case BoxState::Mixed:
        return {{0.27, 0.5}, {0.5, 0.5}, {0.73, 0.5}};
    case BoxState::Unchecked:
        break;
    }
    return {};
}

QPolygonF spiralInto(const QPolygonF& mark)
{
    constexpr double Turns = 1.25;
    constexpr double OuterRadius = 0.34;
    constexpr int Steps = 48;
    if (mark.isEmpty())
        return {};
    const QLineF toMark(Middle, mark.first());
    QPolygonF line;
    for (int i = 0; i < Steps; ++i) {
        const double left = 1 - double(i) / Steps;
        line << Middle + QLineF::fromPolar(toMark.length() + (OuterRadius - toMark.length()) * left,
                                           toMark.angle() + 360 * Turns * left)
                             .p2();
    }
    return line + mark;
}

double lengthOf(const QPolygonF& line)
{
    double length = 0;
    for (qsizetype i = 1; i < line.size(); ++i)
        length += QLineF(line[i - 1], line[i]).length();
    return length;
}

QPolygonF partOf(const QPolygonF& line, double from, double to)
{
    if (line.isEmpty() || (from <= 0 && to >= 1))
        return line;
    const double total = lengthOf(line);
    const double start = std::clamp(from, 0.0, 1.0) * total;
    const double end = std::max(start, std::min(to, 1.0) * total);
    QPolygonF part;
    double passed = 0;
    for (qsizetype i = 1; i < line.size(); ++i) {
        const double piece = QLineF(line[i - 1], line[i]).length();
        if (piece > 0 && passed + piece >= start && passed <= end) {
            if (part.isEmpty())
                part << onLine(line[i - 1], line[i], (start - passed) / piece);
            part << onLine(line[i - 1], line[i], std::min(1.0, (end - passed) / piece));
        }
        passed += piece;
    }
    return part.isEmpty() ? QPolygonF{line.last()} : part;
}

QPolygonF between(const QPolygonF& from, const QPolygonF& to, double share)
{
    QPolygonF line;
    for (qsizetype i = 0; i < std::min(from.size(), to.size()); ++i)
        line << onLine(from[i], to[i], share);
    return line;
}

} // namespace giggle
