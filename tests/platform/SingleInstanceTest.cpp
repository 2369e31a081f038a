// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include "tests/platform/PrivateBus.h"
#include "tests/platform/SpinUntil.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <future>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Outcome = SingleInstance::Outcome;

class SingleInstanceTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QString m_lock = m_folder.filePath(QStringLiteral("giggle-archives.lock"));
    QDBusConnection m_noBus = QDBusConnection::sessionBus();
};

TEST_F(SingleInstanceTest, KilledHolderLeavesNothingBehind)
{
    QProcess holder;
    holder.start(QCoreApplication::applicationFilePath(), {QStringLiteral("hold-lock"), m_lock});
    ASSERT_TRUE(holder.waitForReadyRead(10000));
    ASSERT_EQ(holder.readLine(), "holding\n");

    testing::internal::CaptureStderr();
    EXPECT_EQ(SingleInstance(m_lock, m_noBus).start(), Outcome::OtherRunning);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Giggle Archives is already running.\n");

    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    EXPECT_EQ(SingleInstance(m_lock, m_noBus).start(), Outcome::First);
}

TEST_F(SingleInstanceTest, ProgramsStartedByTheFirstInstanceDoNotHoldTheLock)
{
    QProcess child;
    {
        SingleInstance first(m_lock, m_noBus);
        ASSERT_EQ(first.start(), Outcome::First);
        child.start(QStringLiteral("sleep"), {QStringLiteral("60")});
        ASSERT_TRUE(child.waitForStarted());
    }
    EXPECT_EQ(SingleInstance(m_lock, m_noBus).start(), Outcome::First);
    child.kill();
    child.waitForFinished();
}

TEST_F(SingleInstanceTest, SecondInstanceBringsTheFirstForward)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    SingleInstance first(m_lock, bus.connect());
    ASSERT_EQ(first.start(), Outcome::First);
    int activations = 0;
    QObject::connect(&first, &WindowActivation::activationRequested, [&activations] { ++activations; });

    const QDBusConnection second = bus.connect();
    auto outcome = std::async(std::launch::async, [&] { return SingleInstance(m_lock, second).start(); });
    ASSERT_TRUE(
        spinUntil([&] { return outcome.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(outcome.get(), Outcome::OtherShown);
    EXPECT_EQ(activations, 1);
}

TEST_F(SingleInstanceTest, SecondInstanceHandsItsFileToTheFirst)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    SingleInstance first(m_lock, bus.connect());
    ASSERT_EQ(first.start(), Outcome::First);
    QList<QUrl> opened;
    QObject::connect(&first, &WindowActivation::documentOpened,
                     [&opened](const QUrl& document) { opened += document; });

    const QDBusConnection second = bus.connect();
    const QUrl document = QUrl::fromLocalFile(QStringLiteral("/some folder/caf\u00e9 100%.csv"));
    auto outcome =
        std::async(std::launch::async, [&] { return SingleInstance(m_lock, second).start(document); });
    ASSERT_TRUE(
        spinUntil([&] { return outcome.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    EXPECT_EQ(outcome.get(), Outcome::OtherShown);
    EXPECT_EQ(opened, QList{document});
}

TEST_F(SingleInstanceTest, ActivationTokenReachesTheWindowSystem)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    SingleInstance first(m_lock, bus.connect());
    ASSERT_EQ(first.start(), Outcome::First);

    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.gigglearchives.GiggleArchives"),
        QStringLiteral("/org/gigglearchives/GiggleArchives"), QStringLiteral("org.freedesktop.Application"),
        QStringLiteral("Activate"));
    message.setArguments({QVariantMap{{QStringLiteral("activation-token"), QStringLiteral("token-7")}}});
    const QDBusPendingCall call = bus.connect().asyncCall(message);
    ASSERT_TRUE(spinUntil([&] { return call.isFinished(); }));
    EXPECT_FALSE(call.isError());
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-7");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(SingleInstanceTest, NameOfAnotherCollectionsInstanceIsNoObstacle)
{
    PrivateBus bus;
    ASSERT_TRUE(bus.isRunning());
    SingleInstance other(m_folder.filePath(QStringLiteral("other.lock")), bus.connect());
    ASSERT_EQ(other.start(), Outcome::First);
    EXPECT_EQ(SingleInstance(m_lock, bus.connect()).start(), Outcome::First);
}

} // namespace

} // namespace giggle
