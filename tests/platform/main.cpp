// SPDX-License-Identifier: MIT
#include "platform/linux/SingleInstance.h"
#include "store/Console.h"

#include <QGuiApplication>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// Takes the lock `path` as another instance would and keeps it until it is killed.
int holdLock(const char* path)
{
    giggle::SingleInstance instance(QString::fromLocal8Bit(path));
    if (instance.start() != giggle::SingleInstance::Outcome::First)
        return 1;
    giggle::printToConsole(QStringLiteral("holding"));
    for (;;)
        ::pause();
}

} // namespace

int main(int argc, char* argv[])
{
    // Neither the screen nor the session bus of whoever runs the tests is touched.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == "hold-lock")
        return holdLock(argv[2]);
    return RUN_ALL_TESTS();
}
