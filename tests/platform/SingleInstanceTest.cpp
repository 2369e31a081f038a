// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"

#include "tests/platform/PrivateBus.h"

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <future>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using Outcome = SingleInstance::Outcome;

class SingleInstanceTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QString m_lock = m_folder.filePath(u"giggle-archives.lock"_s);
    QDBusConnection m_noBus{u"none"_s};
};

TEST_F(SingleInstanceTest, TheFirstInstanceHoldsTheLockAndTheProgramsThatItStartedDoNot)
{
    QProcess child;
    {
        SingleInstance first(m_lock, m_noBus);
        ASSERT_EQ(first.start(), Outcome::First);
        testing::internal::CaptureStderr();
        EXPECT_EQ(SingleInstance(m_lock, m_noBus).start(), Outcome::OtherRunning);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Giggle Archives is already running.\n");
        child.start(u"sleep"_s, {u"60"_s});
        ASSERT_TRUE(child.waitForStarted());
    }
    EXPECT_EQ(SingleInstance(m_lock, m_noBus).start(), Outcome::First);
    child.kill();
    child.waitForFinished();
}

TEST_F(SingleInstanceTest, SecondInstanceBringsTheFirstForwardAndHandsItsFileOver)
{
    PrivateBus bus;
    SingleInstance first(m_lock, bus.connect());
    ASSERT_EQ(first.start(), Outcome::First);
    int activations = 0;
    QList<QUrl> opened;
    QObject::connect(&first, &WindowActivation::activationRequested, [&] { ++activations; });
    QObject::connect(&first, &WindowActivation::documentOpened,
                     [&](const QUrl& document) { opened += document; });
    const QDBusConnection second = bus.connect();
    const QUrl file = QUrl::fromLocalFile(u"/some folder/caf\u00e9 100%.csv"_s);
    for (const QUrl& document : {QUrl(), file}) {
        auto outcome =
            std::async(std::launch::async, [&] { return SingleInstance(m_lock, second).start(document); });
        ASSERT_TRUE(spinUntil(
            [&] { return outcome.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        EXPECT_EQ(outcome.get(), Outcome::OtherShown);
    }
    EXPECT_GE(activations, 1);
    EXPECT_EQ(opened, QList{file});
    // The name on the bus is no obstacle to another collection's instance.
    SingleInstance other(m_folder.filePath(u"other.lock"_s), bus.connect());
    EXPECT_EQ(other.start(), Outcome::First);
}

} // namespace

} // namespace giggle
