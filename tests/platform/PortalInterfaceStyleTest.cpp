// SPDX-License-Identifier: MIT
#include "platform/linux/PortalInterfaceStyle.h"

#include "tests/platform/PrivateBus.h"
#include "tests/platform/SpinUntil.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Style = InterfaceStyle::Style;

const QString Path = u"/org/freedesktop/portal/desktop"_qs;
const QString Appearance = u"org.freedesktop.appearance"_qs;

/// The settings portal of a desktop that has one setting.
class FakeSettings : public QDBusVirtualObject {
public:
    FakeSettings(QDBusConnection bus, QString group, QString key, QVariant value)
        : m_bus(std::move(bus)), m_group(std::move(group)), m_key(std::move(key)), m_value(std::move(value))
    {
        m_bus.registerVirtualObject(Path, this);
        m_bus.registerService(u"org.freedesktop.portal.Desktop"_qs);
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& question, const QDBusConnection&) override
    {
        const QVariant value = QVariant::fromValue(QDBusVariant(m_value));
        return question.arguments() == QVariantList{m_group, m_key} &&
               m_bus.send(question.createReply(QVariant::fromValue(QDBusVariant(value))));
    }

    void change(const QVariant& value, const QString& otherKey = {})
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(Path, u"org.freedesktop.portal.Settings"_qs, u"SettingChanged"_qs);
        signal.setArguments(
            {m_group, otherKey.isEmpty() ? m_key : otherKey, QVariant::fromValue(QDBusVariant(value))});
        m_bus.send(signal);
    }

private:
    QDBusConnection m_bus;
    QString m_group;
    QString m_key;
    QVariant m_value;
};

class PortalInterfaceStyleTest : public testing::Test {
protected:
    void SetUp() override { setPaletteDark(false); }

    static void setPaletteDark(bool dark)
    {
        QGuiApplication::setPalette(QPalette(dark ? Qt::black : Qt::white));
        QCoreApplication::sendPostedEvents();
    }

    PrivateBus m_bus;
};

TEST_F(PortalInterfaceStyleTest, FollowsThePortal)
{
    FakeSettings portal(m_bus.connect(), Appearance, u"color-scheme"_qs, 1U);
    PortalInterfaceStyle style(m_bus.connect());
    int changes = 0;
    QObject::connect(&style, &InterfaceStyle::changed, [&changes] { ++changes; });
    EXPECT_EQ(style.current(), Style::Light);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));

    portal.change(2U, u"accent-color"_qs);
    portal.change(1U);
    portal.change(2U);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Light; }));
    EXPECT_EQ(changes, 2);

    // Without a preference the palette decides; with one it does not.
    setPaletteDark(true);
    EXPECT_EQ(style.current(), Style::Light);
    portal.change(0U);
    EXPECT_TRUE(spinUntil([&] { return style.current() == Style::Dark; }));
}

TEST_F(PortalInterfaceStyleTest, FollowsTheWishesForContrastAndStillness)
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
        FakeSettings portal(bus.connect(), c.group, c.key, c.wanted);
        PortalInterfaceStyle style(bus.connect());
        EXPECT_TRUE(spinUntil([&] { return (style.*c.wish)(); }));
        EXPECT_NE(style.hasHighContrast(), style.reducesMotion());
        portal.change(c.unwanted);
        EXPECT_TRUE(spinUntil([&] { return !(style.*c.wish)(); }));
    }
}

TEST_F(PortalInterfaceStyleTest, WithoutAPortalThePaletteDecides)
{
    setPaletteDark(true);
    PortalInterfaceStyle style(QDBusConnection(u"none"_qs));
    EXPECT_EQ(style.current(), Style::Dark);
    setPaletteDark(false);
    EXPECT_EQ(style.current(), Style::Light);
}

} // namespace

} // namespace giggle
