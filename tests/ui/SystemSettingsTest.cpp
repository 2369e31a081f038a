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
    QSignalSpy changes(&appearance, &Appearance::styleChanged);
    EXPECT_FALSE(appearance.dark());
    style.change(InterfaceStyle::Style::Dark);
    EXPECT_TRUE(appearance.dark());
    style.change(InterfaceStyle::Style::Unspecified);
    EXPECT_FALSE(appearance.dark());
    EXPECT_EQ(changes.count(), 2);
    style.change(true, false);
    EXPECT_TRUE(appearance.highContrast());
    EXPECT_FALSE(appearance.reducesMotion());
    style.change(false, true);
    EXPECT_FALSE(appearance.highContrast());
    EXPECT_TRUE(appearance.reducesMotion());
    EXPECT_EQ(changes.count(), 4);
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

} // namespace giggle
