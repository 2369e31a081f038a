// SPDX-License-Identifier: MIT
#include "platform/linux/PortalInterfaceStyle.h"

#include "tests/platform/PrivateBus.h"
#include "tests/platform/SpinUntil.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Style = InterfaceStyle::Style;

constexpr const char* Path = "/org/freedesktop/portal/desktop";
const QString Appearance = QStringLiteral("org.freedesktop.appearance");
constexpr const char* Interface = "org.freedesktop.portal.Settings";

} // namespace

/// The settings portal of a desktop with few settings.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    FakePortal(QDBusConnection bus, uint scheme)
        : m_settings{{{Appearance, QStringLiteral("color-scheme")}, scheme}}, m_bus(std::move(bus))
    {
        m_bus.registerObject(QString::fromUtf8(Path), this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void change(const QString& key, const QVariant& value, const QString& group = Appearance)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            QString::fromUtf8(Path), QString::fromUtf8(Interface), QStringLiteral("SettingChanged"));
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        m_bus.send(signal);
    }

    QMap<std::pair<QString, QString>, QVariant> m_settings; ///< by group and key
    bool m_silent = false;

public slots:

    QDBusVariant Read(const QString& group, const QString& key)
    {
        if (m_silent)
            setDelayedReply(true);
        else if (!m_settings.contains({group, key}))
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"));
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_settings.value({group, key}))));
    }

private:
    QDBusConnection m_bus;
};

namespace {

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
    FakePortal portal(m_bus.connect(), 1);
    PortalInterfaceStyle style(m_bus.connect());
    int changes = 0;
    QObject::connect(&style, &InterfaceStyle::changed, [&changes] { ++changes; });
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));

    const QString scheme = QStringLiteral("color-scheme");
    portal.change(QStringLiteral("accent-color"), 2U);
    portal.change(scheme, 1U);
    portal.change(scheme, 2U);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Light; }));
    EXPECT_EQ(changes, 2);

    // Without a preference the palette decides; with one it does not.
    setPaletteDark(true);
    EXPECT_EQ(style.current(), Style::Light);
    portal.change(scheme, 0U);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));
}

TEST_F(PortalInterfaceStyleTest, FollowsTheWishesForContrastAndStillness)
{
    using Wish = bool (InterfaceStyle::*)() const;
    const QString desktop = QStringLiteral("org.gnome.desktop.interface");
    const QString accessibility = QStringLiteral("org.gnome.desktop.a11y.interface");

    struct Case {
        QString group;
        QString key;
        QVariant wanted;
        QVariant unwanted;
        Wish wish;
    };

    const Case cases[] = {
        {Appearance, QStringLiteral("contrast"), 1U, 0U, &InterfaceStyle::hasHighContrast},
        {accessibility, QStringLiteral("high-contrast"), true, false, &InterfaceStyle::hasHighContrast},
        {Appearance, QStringLiteral("reduced-motion"), 1U, 0U, &InterfaceStyle::reducesMotion},
        {desktop, QStringLiteral("enable-animations"), false, true, &InterfaceStyle::reducesMotion}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key.toStdString());
        PrivateBus bus;
        FakePortal portal(bus.connect(), 0);
        portal.m_settings[{c.group, c.key}] = c.wanted;
        PortalInterfaceStyle style(bus.connect());
        int changes = 0;
        QObject::connect(&style, &InterfaceStyle::changed, [&changes] { ++changes; });
        EXPECT_TRUE(spinUntil([&] { return (style.*c.wish)(); }));
        EXPECT_NE(style.hasHighContrast(), style.reducesMotion());
        portal.change(c.key, c.unwanted, c.group);
        EXPECT_TRUE(spinUntil([&] { return !(style.*c.wish)(); }));
        EXPECT_EQ(changes, 2);
    }
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
    FakePortal portal(m_bus.connect(), 1);
    portal.m_silent = true;
    QElapsedTimer timer;
    timer.start();
    PortalInterfaceStyle style(m_bus.connect());
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_LT(timer.elapsed(), 1000);
}

} // namespace

} // namespace giggle

#include "PortalInterfaceStyleTest.moc"
