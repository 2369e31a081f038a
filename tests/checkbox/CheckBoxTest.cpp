// SPDX-License-Identifier: MIT
#include "checkbox/CheckBoxAnimation.h"
#include "checkbox/CheckBoxPainting.h"
#include "checkbox/VaneCheckbox.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <functional>

#include <gtest/gtest.h>

namespace giggle {

namespace {

QImage painted(int side, const std::function<void(QPainter&)>& paint)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    return image;
}

QImage picture(const CheckBoxFrame& frame, const CheckBoxStyle& style, int side)
{
    return painted(side, [&](QPainter& painter) { paintCheckBox(painter, frame, style, side); });
}

/// In the look of the application, at twice its size.
QImage picture(const CheckBoxFrame& frame)
{
    return picture(frame, {.cornerRadius = 12, .boxLineWidth = 4, .markLineWidth = 6}, 48);
}

/// How much two pictures of one size differ on the average, 0 to 1.
double difference(const QImage& left, const QImage& right)
{
    double sum = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                   std::abs(qBlue(a) - qBlue(b)) + std::abs(qAlpha(a) - qAlpha(b));
        }
    return sum / (4 * 255.0 * left.width() * left.height());
}

constexpr AnimationKind Kinds[]{AnimationKind::Stroke, AnimationKind::Fill, AnimationKind::Bounce,
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
            EXPECT_GT(difference(start, end), 0.01) << "look the same";
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

class VaneCheckboxTest : public ::testing::Test {
protected:
    VaneCheckboxTest()
    {
        m_window.resize(100, 100);
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }

    QQuickWindow m_window;
    VaneCheckbox m_box{m_window.contentItem()};
};

using Action = std::function<void(VaneCheckbox&)>;

constexpr auto U = VaneCheckbox::Unchecked;
constexpr auto C = VaneCheckbox::Checked;
constexpr auto M = VaneCheckbox::Mixed;

Action set(VaneCheckbox::CheckState state)
{
    return [=](VaneCheckbox& item) { item.setCheckState(state); };
}

Action animate(VaneCheckbox::CheckState state)
{
    return [=](VaneCheckbox& item) { item.setCheckState(state, true); };
}

const Action toggle = [](VaneCheckbox& item) { item.toggle(); };
const Action hide = [](VaneCheckbox& item) { item.setVisible(false); };
const Action leave = [](VaneCheckbox& item) { item.setParentItem(nullptr); };
const Action disable = [](VaneCheckbox& item) { item.setEnabled(false); };
const Action takeNoTime = [](VaneCheckbox& item) { item.setAnimationDuration(0); };

const struct {
    const char* name;
    VaneCheckbox::CheckState start;
    std::vector<Action> actions; // with time for a part of an animation before each
    VaneCheckbox::CheckState end;
    int clicks;
    bool animates; // after the last action
} Courses[] = {
    {"set to what it is", C, {animate(C)}, C, 0, false},
    {"no state", C, {animate(VaneCheckbox::CheckState(3))}, C, 0, false},
    {"toggle mixed", M, {toggle}, C, 1, true},
    {"turned round", U, {toggle, toggle}, U, 2, true},
    {"cut short", U, {toggle, set(M)}, M, 1, false},
    {"other goal, from a mark", C, {animate(M), animate(U)}, U, 0, true},
    {"hidden", U, {toggle, hide}, C, 1, false},
    {"while hidden", U, {hide, animate(C)}, C, 0, false},
    {"out of the window", U, {toggle, leave}, C, 1, false},
    {"disabled", U, {disable, toggle}, U, 0, false},
    {"no time any more", U, {toggle, takeNoTime, toggle}, U, 2, false},
};

TEST_F(VaneCheckboxTest, StateIsWhatWasSetLast)
{
    for (const auto& [name, start, actions, end, clicks, animates] : Courses) {
        SCOPED_TRACE(name);
        VaneCheckbox item(m_window.contentItem());
        item.setAnimationDuration(250);
        item.setCheckState(start);
        const QSignalSpy clicked(&item, &VaneCheckbox::clicked);
        for (const Action& action : actions) {
            QTest::qWait(20);
            action(item);
        }
        EXPECT_EQ(item.checkState(), end);
        EXPECT_EQ(clicked.count(), clicks);
        EXPECT_EQ(item.isAnimating(), animates);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !item.isAnimating(); }));
        EXPECT_EQ(item.checkState(), end);
        item.setSize({24, 24});
        const QImage shown = painted(24, [&](QPainter& painter) { item.paint(&painter); });
        EXPECT_EQ(difference(shown, picture(restFrame(BoxState(end)), CheckBoxStyle(), 24)), 0);
    }
}

TEST_F(VaneCheckboxTest, TapsAndSpaceToggle)
{
    m_box.setPosition({20, 20});
    m_box.setSize({44, 44});
    const QSignalSpy clicked(&m_box, &VaneCheckbox::clicked);
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, {22, 22}); // beside the box, but within the item
    EXPECT_TRUE(m_box.isChecked());
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, {10, 10});
    QTest::mousePress(&m_window, Qt::LeftButton, {}, {40, 40});
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, {10, 10}); // slid off
    EXPECT_TRUE(m_box.isChecked());
    m_window.requestActivate();
    m_box.forceActiveFocus();
    QTest::keyClick(&m_window, Qt::Key_Space);
    EXPECT_FALSE(m_box.isChecked());
    QTest::keyClick(&m_window, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 2);
}

} // namespace

} // namespace giggle
