// SPDX-License-Identifier: MIT
#include "checkbox/CheckBoxAnimation.h"

#include "tests/checkbox/Pictures.h"

#include <array>
#include <map>

#include <gtest/gtest.h>

namespace giggle {

namespace {

constexpr std::array Kinds{AnimationKind::Stroke, AnimationKind::Fill, AnimationKind::Bounce,
                           AnimationKind::Expand, AnimationKind::Flat, AnimationKind::Spiral,
                           AnimationKind::Fade,   AnimationKind::Dot};

QImage at(AnimationKind kind, BoxState from, BoxState to, double progress)
{
    return picture(checkBoxAnimation(kind).frame(from, to, progress));
}

TEST(CheckBoxAnimationTest, LeadsSmoothlyFromRestToRestAndBack)
{
    constexpr int Steps = 100;
    constexpr double Leap = 0.06; // of the greatest difference there is; a whole ground is about 0.4
    constexpr std::pair<BoxState, BoxState> Ways[] = {{BoxState::Unchecked, BoxState::Checked},
                                                      {BoxState::Unchecked, BoxState::Mixed},
                                                      {BoxState::Checked, BoxState::Mixed}};
    for (const AnimationKind kind : Kinds)
        for (const auto& [from, to] : Ways) {
            SCOPED_TRACE(testing::Message()
                         << "kind " << int(kind) << ", " << int(from) << " to " << int(to));
            const QImage start = picture(restFrame(from));
            const QImage end = picture(restFrame(to));
            QImage last = start;
            double furthest = 0;
            for (int step = 0; step <= Steps; ++step) {
                const double progress = double(step) / Steps;
                const QImage now = at(kind, from, to, progress);
                ASSERT_LT(difference(last, now), Leap) << "jumps at " << progress;
                ASSERT_LT(difference(now, at(kind, to, from, 1 - progress)), 5e-3) << "back at " << progress;
                furthest = std::max(furthest, std::min(difference(now, start), difference(now, end)));
                last = now;
            }
            EXPECT_EQ(difference(at(kind, from, to, 0), start), 0);
            EXPECT_EQ(difference(last, end), 0);
            EXPECT_GT(furthest, 0.01) << "nothing is to be seen of the way";
        }
}

TEST(CheckBoxAnimationTest, KindsDifferFromEachOther)
{
    for (const AnimationKind one : Kinds)
        for (const AnimationKind other : Kinds) {
            double furthest = 0;
            for (const double progress : {0.2, 0.4, 0.6, 0.8})
                furthest = std::max(furthest,
                                    difference(at(one, BoxState::Unchecked, BoxState::Checked, progress),
                                               at(other, BoxState::Unchecked, BoxState::Checked, progress)));
            EXPECT_TRUE(one == other || furthest > 0.01) << int(one) << ' ' << int(other);
        }
}

TEST(CheckBoxPictures, ShowStateAndColors)
{
    for (const BoxShape shape : {BoxShape::Square, BoxShape::Circle})
        for (const BoxState state : {BoxState::Unchecked, BoxState::Checked, BoxState::Mixed}) {
            SCOPED_TRACE(testing::Message() << int(shape) << ", state " << int(state));
            CheckBoxStyle style = pictureStyle(shape);
            style.tint = Qt::red;
            style.uncheckedFill = Qt::green;
            style.secondary = Qt::blue;
            style.mark = Qt::yellow;
            const QImage image = picture(restFrame(state), style);
            std::map<QRgb, double> ink;
            for (int i = 0; i < PictureSide * PictureSide; ++i)
                ink[image.pixel(i % PictureSide, i / PictureSide)] += 1.0 / (PictureSide * PictureSide);
            EXPECT_EQ(ink[0xff00ff00] > 0.4, state == BoxState::Unchecked);
            EXPECT_EQ(ink[0xffff0000] > 0.3, state != BoxState::Unchecked);
            EXPECT_EQ(ink[0xffffff00] > 0.03, state != BoxState::Unchecked);
            EXPECT_GT(ink[0xff0000ff], 0.15);
            EXPECT_EQ(image.pixelColor(7, 7).alpha() < 255, shape == BoxShape::Circle);
        }
}

} // namespace

} // namespace giggle
