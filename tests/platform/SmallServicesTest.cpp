// SPDX-License-Identifier: MIT
// The services that have too few rules for a file of their own.
#include "platform/linux/DesktopNotification.h"
#include "platform/linux/LinuxFonts.h"
#include "tests/platform/PrivateBus.h"

#include <QElapsedTimer>
#include <QFontInfo>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

TEST(LinuxFontsTest, NamesResolveToInstalledFamiliesAndUnknownOnesToNone)
{
    LinuxFonts fonts;
    const std::pair<const char*, const char*> names[] = {{"Arial", "Liberation Sans"},
                                                         {"Times New Roman", "Liberation Serif"},
                                                         {"Liberation Mono", "Liberation Mono"},
                                                         {"arial", "Liberation Sans"}};
    for (const auto& [name, family] : names) {
        const auto font = fonts.font(QString::fromUtf8(name), 15.0);
        ASSERT_TRUE(font) << name;
        EXPECT_EQ(QFontInfo(*font).family(), QString::fromUtf8(family));
        EXPECT_EQ(font->pixelSize(), 15);
    }
    for (const char* name : {"", "Arial Liberation", "Liberation San"})
        EXPECT_FALSE(fonts.font(QString::fromUtf8(name), 15.0)) << name;
    const QStringList families = fonts.families();
    EXPECT_TRUE(families.contains(u"Arial"_s));
    for (const QString& family : families)
        EXPECT_TRUE(fonts.font(family, 15.0)) << qPrintable(family);
}

TEST(DesktopNotificationTest, NeverKeepsTheCallerWaiting)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(DesktopNotification(QDBusConnection(u"none"_qs)).show({}, {}));
    PrivateBus bus;
    EXPECT_FALSE(DesktopNotification(bus.connect()).show({}, {}));
    QObject silent; // is called in this thread, which waits
    QDBusConnection service = bus.connect();
    service.registerObject(u"/org/freedesktop/Notifications"_s, &silent);
    service.registerService(u"org.freedesktop.Notifications"_s);
    const auto start = timer.elapsed();
    EXPECT_FALSE(DesktopNotification(bus.connect(), std::chrono::milliseconds(200)).show({}, {}));
    EXPECT_GE(timer.elapsed(), start + 150) << "nothing was waited for";
    EXPECT_LT(timer.elapsed(), 3000);
}

} // namespace

} // namespace giggle
