// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopNotification.h"

#include "tests/platform/PrivateBus.h"

#include <QDBusContext>
#include <QElapsedTimer>
#include <QThread>
#include <QVariantMap>

#include <atomic>

#include <gtest/gtest.h>

namespace giggle {

/// A notification service in a thread of its own, as the caller waits for it.
class FakeNotifications : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    explicit FakeNotifications(QDBusConnection bus)
    {
        moveToThread(&m_thread);
        m_thread.start();
        bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                           QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    }

    ~FakeNotifications() override
    {
        m_thread.quit();
        m_thread.wait();
    }

    std::atomic<bool> m_silent = false;
    QString m_summary;
    QString m_body;

public slots:

    uint Notify(const QString&, uint, const QString&, const QString& summary, const QString& body,
                const QStringList&, const QVariantMap&, int)
    {
        m_summary = summary;
        m_body = body;
        if (m_silent)
            setDelayedReply(true);
        return 1;
    }

private:
    QThread m_thread;
};

namespace {

TEST(DesktopNotificationTest, ArrivesAsPlainText)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    FakeNotifications service(bus.connect());
    const DesktopNotification notification(bus.connect());
    EXPECT_TRUE(notification.show(QStringLiteral("It ended"), QStringLiteral("<b> & co")));
    EXPECT_EQ(service.m_summary, QStringLiteral("It ended"));
    EXPECT_EQ(service.m_body, QStringLiteral("&lt;b&gt; &amp; co"));
}

TEST(DesktopNotificationTest, NeverKeepsTheCallerWaiting)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(DesktopNotification(QDBusConnection::sessionBus()).show(QString(), QString()));

    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    EXPECT_FALSE(DesktopNotification(bus.connect()).show(QString(), QString()));

    FakeNotifications service(bus.connect());
    service.m_silent = true;
    const DesktopNotification impatient(bus.connect(), std::chrono::milliseconds(200));
    EXPECT_FALSE(impatient.show(QString(), QString()));
    EXPECT_LT(timer.elapsed(), 3000);
}

} // namespace

} // namespace giggle

#include "DesktopNotificationTest.moc"
