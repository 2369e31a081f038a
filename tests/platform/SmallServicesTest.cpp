// SPDX-License-Identifier: MIT
// The services that have too few rules for a file of their own.
#include "platform/linux/DesktopNotification.h"
#include "platform/linux/LinuxFonts.h"
#include "platform/linux/LinuxStoreReview.h"
#include "tests/platform/PrivateBus.h"
#include "tests/platform/SpinUntil.h"

#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QFontInfo>
#include <QWindow>

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
    QStringList families = fonts.families();
    EXPECT_TRUE(families.contains(u"Arial"_s));
    for (const QString& family : families)
        EXPECT_TRUE(fonts.font(family, 15.0)) << qPrintable(family);
    EXPECT_EQ(families.removeDuplicates(), 0);
}

TEST(LinuxStoreReviewTest, TheSceneIsInFrontOnceTheApplicationIs)
{
    const LinuxStoreReview review;
    const auto isInFront = [&review] {
        const std::vector<StoreReview::Scene> scenes = review.connectedScenes();
        return scenes.size() == 1 &&
               scenes[0].activationState == StoreReview::ActivationState::ForegroundActive;
    };
    EXPECT_FALSE(isInFront());
    QWindow window;
    window.show();
    window.requestActivate();
    EXPECT_TRUE(spinUntil(isInFront));
}

class SilentService : public QDBusVirtualObject {
public:
    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage&, const QDBusConnection&) override { return true; }
};

TEST(DesktopNotificationTest, NeverKeepsTheCallerWaiting)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(DesktopNotification(QDBusConnection(u"none"_qs)).show({}, {}));
    PrivateBus bus;
    EXPECT_FALSE(DesktopNotification(bus.connect()).show({}, {}));
    SilentService silent;
    QDBusConnection service = bus.connect();
    service.registerVirtualObject(u"/org/freedesktop/Notifications"_s, &silent);
    service.registerService(u"org.freedesktop.Notifications"_s);
    const auto start = timer.elapsed();
    EXPECT_FALSE(DesktopNotification(bus.connect(), std::chrono::milliseconds(200)).show({}, {}));
    EXPECT_GE(timer.elapsed(), start + 150) << "nothing was waited for";
    EXPECT_LT(timer.elapsed(), 3000);
}

} // namespace

} // namespace giggle
