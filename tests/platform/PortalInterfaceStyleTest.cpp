// SPDX-License-Identifier: MIT
#include "platform/linux/PortalInterfaceStyle.h"

#include "tests/platform/PrivateBus.h"
#include "tests/platform/SpinUntil.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Style = InterfaceStyle::Style;

const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString Group = QStringLiteral("org.freedesktop.appearance");

/// The settings portal of a desktop that prefers dark windows.
class FakePortal : public QDBusVirtualObject {
public:
    explicit FakePortal(QDBusConnection bus) : m_bus(std::move(bus))
    {
        m_bus.registerVirtualObject(Path, this);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        const QVariant dark = QVariant::fromValue(QDBusVariant(1U));
        if (message.interface() == Interface && message.member() == QStringLiteral("Read") &&
            message.arguments() == QVariantList{Group, QStringLiteral("color-scheme")} && !m_silent)
            m_bus.send(message.createReply(QVariant::fromValue(QDBusVariant(dark))));
        return true;
    }

    void change(const QString& key, uint scheme)
    {
        QDBusMessage signal = QDBusMessage::createSignal(Path, Interface, QStringLiteral("SettingChanged"));
        signal.setArguments({Group, key, QVariant::fromValue(QDBusVariant(scheme))});
        m_bus.send(signal);
    }

    bool m_silent = false;

private:
    QDBusConnection m_bus;
};

class PortalInterfaceStyleTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        setPaletteDark(false);
    }

    static void setPaletteDark(bool dark)
    {
        QGuiApplication::setPalette(QPalette(dark ? Qt::black : Qt::white));
        QCoreApplication::sendPostedEvents();
    }

    PrivateBus m_bus;
};

TEST_F(PortalInterfaceStyleTest, FollowsThePortal)
{
    FakePortal portal(m_bus.connect());
    PortalInterfaceStyle style(m_bus.connect());
    int changes = 0;
    QObject::connect(&style, &InterfaceStyle::changed, [&changes] { ++changes; });
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));

    const QString scheme = QStringLiteral("color-scheme");
    portal.change(QStringLiteral("accent-color"), 2);
    portal.change(scheme, 1);
    portal.change(scheme, 2);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Light; }));
    EXPECT_EQ(changes, 2);

    // Without a preference the palette decides; with one it does not.
    setPaletteDark(true);
    EXPECT_EQ(style.current(), Style::Light);
    portal.change(scheme, 0);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));
}

TEST_F(PortalInterfaceStyleTest, WithoutAPortalThePaletteDecides)
{
    setPaletteDark(true);
    PortalInterfaceStyle style(QDBusConnection::sessionBus());
    int changes = 0;
    QObject::connect(&style, &InterfaceStyle::changed, [&changes] { ++changes; });
    EXPECT_EQ(style.current(), Style::Dark);
    setPaletteDark(false);
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_EQ(changes, 1);
}

TEST_F(PortalInterfaceStyleTest, SilentPortalDelaysNothing)
{
    FakePortal portal(m_bus.connect());
    portal.m_silent = true;
    QElapsedTimer timer;
    timer.start();
    PortalInterfaceStyle style(m_bus.connect());
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_LT(timer.elapsed(), 1000);
}

} // namespace

} // namespace giggle
