// SPDX-License-Identifier: MIT
#include "tests/support/FakePlatform.h"
#include "ui/Appearance.h"
#include "ui/TimerMainQueue.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <optional>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using std::chrono::milliseconds;

} // namespace

TEST(AppearanceTest, FollowsTheInterfaceStyle)
{
    FakeInterfaceStyle style;
    const Appearance appearance(style);
    QSignalSpy changes(&appearance, &Appearance::darkChanged);
    EXPECT_FALSE(appearance.dark());
    style.change(InterfaceStyle::Style::Dark);
    EXPECT_TRUE(appearance.dark());
    style.change(InterfaceStyle::Style::Unspecified);
    EXPECT_FALSE(appearance.dark());
    EXPECT_EQ(changes.count(), 2);
}

TEST(AppearanceTest, FollowsTheSystemsFont)
{
    FakeInterfaceStyle style;
    const QFont before = QGuiApplication::font();
    const Appearance appearance(style);
    QSignalSpy changes(&appearance, &Appearance::textScaleChanged);
    EXPECT_DOUBLE_EQ(appearance.textScale(), 1.0);

    struct Case {
        double pointSize;
        double scale;
    };

    for (const Case& c : {Case{22, 2}, Case{8, 1}, Case{1000, 3}}) {
        QFont font = before;
        font.setPointSizeF(c.pointSize);
        QGuiApplication::setFont(font);
        QCoreApplication::processEvents();
        EXPECT_DOUBLE_EQ(appearance.textScale(), c.scale) << c.pointSize;
    }
    EXPECT_EQ(changes.count(), 3);
    QGuiApplication::setFont(before);
}

TEST(TimerMainQueueTest, RunsWorkInTheOrderInWhichItFallsDue)
{
    TimerMainQueue queue;
    std::vector<int> order;
    queue.asyncAfter(milliseconds(40), [&] { order.push_back(4); });
    queue.asyncAfter(milliseconds(20), [&] { order.push_back(3); });
    queue.async([&] { order.push_back(1); });
    queue.async([&] { order.push_back(2); });
    EXPECT_TRUE(order.empty()) << "never at once";
    QTest::qWait(100);
    EXPECT_THAT(order, ::testing::ElementsAre(1, 2, 3, 4));
}

TEST(TimerMainQueueTest, DropsWorkThatIsStillWaitingAtItsEnd)
{
    bool hasRun = false;
    std::optional<TimerMainQueue> queue(std::in_place);
    queue->async([&] { hasRun = true; });
    queue->asyncAfter(milliseconds(1), [&] { hasRun = true; });
    queue.reset();
    QTest::qWait(20);
    EXPECT_FALSE(hasRun);
}

} // namespace giggle
