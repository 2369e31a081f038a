// SPDX-License-Identifier: MIT
#include "platform/linux/PortalInterfaceStyle.h"

#include "tests/platform/FakePortal.h"
#include "tests/platform/PrivateBus.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Style = InterfaceStyle::Style;

const QString Appearance = u"org.freedesktop.appearance"_qs;

void setPaletteDark(bool dark)
{
    QGuiApplication::setPalette(QPalette(dark ? Qt::black : Qt::white));
    QCoreApplication::sendPostedEvents();
}

TEST(PortalInterfaceStyleTest, FollowsThePortalsSchemeAndWithoutOneThePalette)
{
    setPaletteDark(false);
    PrivateBus bus;
    FakePortal portal(bus.connect(), {{Appearance + u" color-scheme"_qs, 1U}});
    const auto change = [&](uint scheme) { portal.change(Appearance, u"color-scheme"_qs, scheme); };
    PortalInterfaceStyle style(bus.connect());
    int changes = 0;
    QObject::connect(&style, &InterfaceStyle::changed, [&changes] { ++changes; });
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));
    change(1);
    change(2);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Light; }));
    EXPECT_EQ(changes, 2);

    const PortalInterfaceStyle withoutPortal(QDBusConnection(u"none"_qs));
    setPaletteDark(true);
    EXPECT_EQ(withoutPortal.current(), Style::Dark);
    EXPECT_EQ(style.current(), Style::Light);
    change(0); // no preference
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));
}

TEST(PortalInterfaceStyleTest, FollowsTheWishesForContrastAndStillness)
{
    const struct {
        QString group;
        QString key;
        QVariant wanted;
        QVariant unwanted;
        bool (InterfaceStyle::*wish)() const;
    } cases[] = {{Appearance, u"contrast"_qs, 1U, 0U, &InterfaceStyle::hasHighContrast},
                 {u"org.gnome.desktop.a11y.interface"_qs, u"high-contrast"_qs, true, false,
                  &InterfaceStyle::hasHighContrast},
                 {Appearance, u"reduced-motion"_qs, 1U, 0U, &InterfaceStyle::reducesMotion},
                 {u"org.gnome.desktop.interface"_qs, u"enable-animations"_qs, false, true,
                  &InterfaceStyle::reducesMotion}};

    for (const auto& c : cases) {
        SCOPED_TRACE(c.key.toStdString());
        PrivateBus bus;
        FakePortal portal(bus.connect(), {{c.group + u' ' + c.key, c.wanted}});
        PortalInterfaceStyle style(bus.connect());
        EXPECT_TRUE(spinUntil([&] { return (style.*c.wish)(); }));
        EXPECT_NE(style.hasHighContrast(), style.reducesMotion());
        portal.change(c.group, c.key, c.unwanted);
        EXPECT_TRUE(spinUntil([&] { return !(style.*c.wish)(); }));
    }
}

} // namespace

} // namespace giggle
