// SPDX-License-Identifier: MIT
#include "checkbox/CheckBoxAnimation.h"

#include "checkbox/CheckBoxPaths.h"

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace giggle {

namespace {

/// How much of the piece of time between @p start and @p end has passed at @p t, with a soft start and end.
double passed(double t, double start, double end)
{
    const double share = std::clamp((t - start) / (end - start), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

QPolygonF scaled(const QPolygonF& line, double scale)
{
    return QTransform().translate(0.5, 0.5).scale(scale, scale).translate(-0.5, -0.5).map(line);
}

CheckBoxFrame tinted(double ground, const MarkStroke& mark)
{
    CheckBoxFrame frame;
    frame.ground = ground;
    frame.marks.push_back(mark);
    return frame;
}

/// The first half takes the old mark back, the second one brings the new one.
template <typename MarkAt>
CheckBoxFrame inTurn(BoxState from, BoxState to, double t, const MarkAt& markAt)
{
    const bool isLeaving = t < 0.5;
    return tinted(1, markAt(markLine(isLeaving ? from : to), isLeaving ? 1 - 2 * t : 2 * t - 1));
}

/// A line runs round the box, the ground takes its colour, and the mark is written.
class StrokeAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        CheckBoxFrame frame = tinted(passed(t, 0.35, 0.7), written(markLine(state), passed(t, 0.45, 1)));
        frame.outline = passed(t, 0, 0.5);
        return frame;
    }

    CheckBoxFrame change(BoxState from, BoxState to, double t) const override
    {
        return inTurn(from, to, t,
                      [](const QPolygonF& line, double share) { return written(line, passed(share, 0, 1)); });
    }

    static MarkStroke written(const QPolygonF& line, double share)
    {
        return {.line = share > 0 ? line : QPolygonF(), .to = share};
    }
};

/// The ground fills from the middle, and carries the mark.
class FillAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        const double size = passed(t, 0.15, 1);
        CheckBoxFrame frame = tinted(1, {.line = scaled(markLine(state), size), .width = size});
        frame.groundScale = passed(t, 0, 0.85);
        return frame;
    }
};

/// The box gives way, and the mark springs out of it.
class BounceAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        const double size = sprung(std::max(0.0, (t - 0.1) / 0.9));
        return pressed(
            tinted(passed(t, 0, 0.35), {.line = scaled(markLine(state), size), .width = std::min(1.0, size)}),
            t);
    }

    CheckBoxFrame change(BoxState from, BoxState to, double t) const override
    {
        return pressed(tinted(1, {.line = between(markLine(from), markLine(to), sprung(t))}), t);
    }

    static CheckBoxFrame pressed(CheckBoxFrame frame, double t)
    {
        constexpr double Depth = 0.14;
        frame.boxScale = 1 - Depth * std::sin(std::numbers::pi * passed(t, 0, 0.6));
        return frame;
    }

    /// From 0 past 1 and back to it.
    static double sprung(double t) { return 1 - std::exp(-5 * t) * std::cos(2.5 * std::numbers::pi * t); }
};

/// The mark grows from its corner to both ends.
class ExpandAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        return tinted(passed(t, 0, 0.4), expanded(markLine(state), passed(t, 0.15, 1)));
    }

    CheckBoxFrame change(BoxState from, BoxState to, double t) const override
    {
        return inTurn(from, to, t, [](const QPolygonF& line, double share) {
            return expanded(line, passed(share, 0, 1));
        });
    }

    static MarkStroke expanded(const QPolygonF& line, double share)
    {
        const double corner = lengthOf(line.first(2)) / lengthOf(line);
        return {.line = line,
                .from = corner * (1 - share),
                .to = corner + (1 - corner) * share,
                .width = std::min(1.0, 4 * share)};
    }
};

/// The mark comes as a flat bar and unfolds.
class FlatAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        const double width = passed(t, 0.1, state == BoxState::Mixed ? 1 : 0.6);
        const QPolygonF line = between(markLine(BoxState::Mixed), markLine(state), passed(t, 0.45, 1));
        return tinted(passed(t, 0, 0.4), {.line = line,
                                          .from = 0.5 - width / 2,
                                          .to = 0.5 + width / 2,
                                          .width = std::min(1.0, 4 * width)});
    }
};

/// The mark's line winds in from the box's edge.
class SpiralAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        const QPolygonF line = spiralInto(markLine(state));
        const double lead = 1 - lengthOf(markLine(state)) / lengthOf(line);
        return tinted(passed(t, 0, 0.35), {.line = line,
                                           .from = lead * passed(t, 0.3, 1),
                                           .to = passed(t, 0.05, 0.9),
                                           .width = passed(t, 0.05, 0.35)});
    }
};

class FadeAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        const double opacity = passed(t, 0, 1);
        return tinted(opacity, {.line = markLine(state), .opacity = opacity});
    }

    CheckBoxFrame change(BoxState from, BoxState to, double t) const override
    {
        const double opacity = passed(t, 0, 1);
        CheckBoxFrame frame = tinted(1, {.line = markLine(from), .opacity = 1 - opacity});
        frame.marks.push_back({.line = markLine(to), .opacity = opacity});
        return frame;
    }
};

/// A dot swells in the middle and stretches into the mark.
class DotAnimation final : public CheckBoxAnimation {
    CheckBoxFrame appear(BoxState state, double t) const override
    {
        return tinted(passed(t, 0, 0.35), stretched(markLine(state), t));
    }

    CheckBoxFrame change(BoxState from, BoxState to, double t) const override
    {
        // The dot stays: it is half way to a mark.
        return inTurn(from, to, t,
                      [](const QPolygonF& line, double share) { return stretched(line, (1 + share) / 2); });
    }

    static MarkStroke stretched(const QPolygonF& line, double t)
    {
        constexpr double DotWidth = 2.2;
        const double length = passed(t, 0.5, 1);
        return {.line = scaled(line, length),
                .width = DotWidth * passed(t, 0.1, 0.5) + (1 - DotWidth) * length};
    }
};

} // namespace

CheckBoxFrame restFrame(BoxState state)
{
    return state == BoxState::Unchecked ? CheckBoxFrame() : tinted(1, {.line = markLine(state)});
}

CheckBoxFrame CheckBoxAnimation::frame(BoxState from, BoxState to, double progress) const
{
    if (from == to || progress >= 1)
        return restFrame(to);
    if (progress <= 0)
        return restFrame(from);
    if (from == BoxState::Unchecked)
        return appear(to, progress);
    if (to == BoxState::Unchecked)
        return appear(from, 1 - progress);
    // In one direction only, so that this way, too, is the same in reverse.
    return from == BoxState::Checked ? change(from, to, progress) : change(to, from, 1 - progress);
}

CheckBoxFrame CheckBoxAnimation::change(BoxState from, BoxState to, double t) const
{
    return tinted(1, {.line = between(markLine(from), markLine(to), passed(t, 0, 1))});
}

const CheckBoxAnimation& checkBoxAnimation(AnimationKind kind)
{
    static const StrokeAnimation stroke;
    static const FillAnimation fill;
    static const BounceAnimation bounce;
    static const ExpandAnimation expand;
    static const FlatAnimation flat;
    static const SpiralAnimation spiral;
    static const FadeAnimation fade;
    static const DotAnimation dot;
    switch (kind) {
    case AnimationKind::Stroke:
        return stroke;
    case AnimationKind::Fill:
        return fill;
    case AnimationKind::Bounce:
        return bounce;
    case AnimationKind::Expand:
        return expand;
    case AnimationKind::Flat:
        return flat;
    case AnimationKind::Spiral:
        return spiral;
    case AnimationKind::Fade:
        return fade;
    case AnimationKind::Dot:
        return dot;
    }
    return stroke; // scripts may send any number
}

} // namespace giggle
