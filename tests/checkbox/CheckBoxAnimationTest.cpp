// SPDX-License-Identifier: MIT
#include "checkbox/CheckBoxAnimation.h"

#include "tests/checkbox/Pictures.h"

#include <array>
#include <ostream>

#include <gtest/gtest.h>

namespace giggle {

namespace {

struct NamedKind {
    AnimationKind kind;
    const char* name;
};

void PrintTo(const NamedKind& kind, std::ostream* out)
{
    *out << kind.name;
}

constexpr std::array Kinds{
    NamedKind{AnimationKind::Stroke, "Stroke"}, NamedKind{AnimationKind::Fill, "Fill"},
    NamedKind{AnimationKind::Bounce, "Bounce"}, NamedKind{AnimationKind::Expand, "Expand"},
    NamedKind{AnimationKind::Flat, "Flat"},     NamedKind{AnimationKind::Spiral, "Spiral"},
    NamedKind{AnimationKind::Fade, "Fade"},     NamedKind{AnimationKind::Dot, "Dot"}};

struct Way {
    BoxState from;
    BoxState to;
};

constexpr std::array Ways{Way{BoxState::Unchecked, BoxState::Checked},
                          Way{BoxState::Unchecked, BoxState::Mixed}, Way{BoxState::Checked, BoxState::Mixed}};

class CheckBoxAnimationTest : public ::testing::TestWithParam<NamedKind> {
protected:
    static QImage at(const Way& way, double progress)
    {
        return picture(checkBoxAnimation(GetParam().kind).frame(way.from, way.to, progress));
    }
};

INSTANTIATE_TEST_SUITE_P(, CheckBoxAnimationTest, ::testing::ValuesIn(Kinds),
                         [](const auto& test) { return test.param.name; });

TEST_P(CheckBoxAnimationTest, LeadsSmoothlyFromRestToRestAndBack)
{
    constexpr int Steps = 100;
    constexpr double Leap = 0.06; // of the greatest difference there is; a whole ground is about 0.4
    for (const Way& way : Ways) {
        SCOPED_TRACE(testing::Message() << int(way.from) << " to " << int(way.to));
        const QImage start = picture(restFrame(way.from));
        const QImage end = picture(restFrame(way.to));
        QImage last = start;
        double furthest = 0;
        for (int step = 0; step <= Steps; ++step) {
            const double progress = double(step) / Steps;
            const QImage now = at(way, progress);
            ASSERT_LT(difference(last, now), Leap) << "jumps at " << progress;
            ASSERT_LT(difference(now, at({way.to, way.from}, 1 - progress)), 5e-3) << "back at " << progress;
            furthest = std::max(furthest, std::min(difference(now, start), difference(now, end)));
            last = now;
        }
        EXPECT_EQ(difference(at(way, 0), start), 0);
        EXPECT_EQ(difference(at(way, 1), end), 0);
        EXPECT_GT(furthest, 0.01) << "nothing is to be seen of the way";
    }
}

TEST(CheckBoxPictures, AnimationsDifferFromEachOther)
{
    for (const NamedKind& one : Kinds)
        for (const NamedKind& other : Kinds) {
            double furthest = 0;
            for (const double progress : {0.2, 0.4, 0.6, 0.8}) {
                const auto frameOf = [&](AnimationKind kind) {
                    return checkBoxAnimation(kind).frame(BoxState::Unchecked, BoxState::Checked, progress);
                };
                furthest =
                    std::max(furthest, difference(picture(frameOf(one.kind)), picture(frameOf(other.kind))));
            }
            EXPECT_TRUE(one.kind == other.kind || furthest > 0.01) << one.name << ' ' << other.name;
        }
}

TEST(CheckBoxPictures, ShowStateShapeAndColours)
{
    const auto inkOf = [](const QImage& image, QColor color) {
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                pixels += image.pixelColor(x, y) == color;
        return double(pixels) / (image.width() * image.height());
    };
    for (const BoxShape shape : {BoxShape::Square, BoxShape::Circle}) {
        CheckBoxStyle style = pictureStyle(shape);
        style.tint = Qt::red;
        style.uncheckedFill = Qt::green;
        style.secondary = Qt::blue;
        style.mark = Qt::yellow;
        for (const BoxState state : {BoxState::Unchecked, BoxState::Checked, BoxState::Mixed}) {
            SCOPED_TRACE(testing::Message() << int(shape) << ", state " << int(state));
            const QImage image = picture(restFrame(state), style);
            EXPECT_EQ(inkOf(image, Qt::green) > 0.4, state == BoxState::Unchecked);
            EXPECT_EQ(inkOf(image, Qt::red) > 0.3, state != BoxState::Unchecked);
            EXPECT_EQ(inkOf(image, Qt::yellow) > 0.03, state != BoxState::Unchecked);
            EXPECT_GT(inkOf(image, Qt::blue), 0.15);
            // A straight edge is a row of whole pixels, and the corners are free.
            EXPECT_EQ(image.pixelColor(PictureSide / 2, 0) == QColor(Qt::blue), shape == BoxShape::Square);
            EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
            EXPECT_EQ(image.pixelColor(7, 7).alpha() < 255, shape == BoxShape::Circle);
        }
    }
}

} // namespace

} // namespace giggle
