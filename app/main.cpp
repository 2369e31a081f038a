// SPDX-License-Identifier: MIT
#include "app/DailyCopying.h"
#include "app/QuitSignals.h"
#include "app/UserInterface.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/BundleResources.h"
#include "platform/linux/CupsPrinters.h"
#include "platform/linux/DesktopAddressOpener.h"
#include "platform/linux/DesktopNotification.h"
#include "platform/linux/LinuxFileOpener.h"
#include "platform/linux/LinuxFonts.h"
#include "platform/linux/LinuxMailComposer.h"
#include "platform/linux/LinuxMessageCapability.h"
#include "platform/linux/LinuxStoreReview.h"
#include "platform/linux/OutgoingFiles.h"
#include "platform/linux/PortalFileDialog.h"
#include "platform/linux/PortalInterfaceStyle.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/StoragePlaces.h"
#include "store/AppDelegate.h"
#include "store/Console.h"
#include "store/FatalError.h"
#include "store/Preferences.h"
#include "store/WriteSignals.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QUrl>

#include <cstdlib>

namespace giggle {

namespace {

constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";

// Qt would end a program that finds no display before it could say a word.
void choosePlatformPlugin()
{
    QByteArray plugins;
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        plugins += "wayland;";
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        plugins += "xcb;";
    qputenv(PlatformVariable, plugins + "offscreen");
}

bool isWithoutDisplay()
{
    return QGuiApplication::platformName() == QLatin1StringView("offscreen");
}

bool isStartedByBus()
{
    return qEnvironmentVariableIsSet("DBUS_STARTER_ADDRESS");
}

void introduceApplication()
{
    QGuiApplication::setApplicationName(QStringLiteral("giggle-archives"));
    QGuiApplication::setApplicationDisplayName(ApplicationIdentity::displayName());
    QGuiApplication::setDesktopFileName(ApplicationIdentity::applicationId());
    QGuiApplication::setWindowIcon(QIcon::fromTheme(
        ApplicationIdentity::applicationId(),
        QIcon(QStringLiteral(":/resources/icons/%1.svg").arg(ApplicationIdentity::applicationId()))));
}

void notify(const QString& message)
{
    DesktopNotification().show(ApplicationIdentity::displayName(), message);
}

/// Where files lie that other programs are handed, see OutgoingFiles.
QString outgoingFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/outgoing");
}

void sayWhenReady(QQuickWindow& window)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [] { printToConsole(ApplicationIdentity::displayName() + QStringLiteral(" is ready.")); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

/// The file that the application is started with, or nothing.
QUrl documentOnCommandLine()
{
    QStringList files;
    for (const QString& argument : QCoreApplication::arguments().mid(1))
        if (argument.startsWith(u'-') && !QFile::exists(argument))
            printFailure(QStringLiteral("There is no option \"%1\".").arg(argument));
        else
            files += argument;
    if (files.size() > 1)
        printFailure(QStringLiteral("One file can be opened at a time; the others are left out."));
    return files.isEmpty() ? QUrl()
                           : QUrl::fromUserInput(files[0], QDir::currentPath(), QUrl::AssumeLocalFile);
}

int run(const StoragePlaces& places, WindowActivation& windowActivation, const QUrl& document)
{
    const std::optional<QString> lastFatalError = takeFatalErrorRecord(places.fatalErrorRecord());
    setFatalErrorRecord(places.fatalErrorRecord());
    setFatalErrorNotifier(notify);

    Preferences userDefaults(places.preferenceFile());
    AppDelegate appDelegate(places.collectionFolder());
    appDelegate.applicationDidFinishLaunching();

    const DailyCopying dailyCopying(appDelegate);

    PortalInterfaceStyle interfaceStyle;
    LinuxFonts fonts;
    BundleResources resources;
    LinuxStoreReview storeReview;
    DesktopAddressOpener addressOpener;
    LinuxMailComposer mailComposer(addressOpener, outgoingFolder());
    LinuxMessageCapability messageCapability;
    LinuxFileOpener fileOpener(addressOpener);
    CupsPrinters printers;
    PortalFileDialog fileDialog;
    Platform platform{interfaceStyle, fonts,        resources,         windowActivation, storeReview,
                      addressOpener,  mailComposer, messageCapability, fileOpener};
    platform.printers = &printers;
    platform.documentsFolder = places.documentsFolder();
    platform.temporaryFolder = OutgoingFiles(outgoingFolder()).makeFolder();
    // What other programs were handed stays for them.
    const auto removeIfUnused = qScopeGuard([&] { QDir().rmdir(platform.temporaryFolder); });
    UserInterface interface(appDelegate, userDefaults, platform);
    interface.documentPicker().setSystemDialog(&fileDialog);
    if (lastFatalError)
        interface.navigation().setNotice(QStringLiteral("The last time, %1 had to stop: %2")
                                             .arg(ApplicationIdentity::displayName(), *lastFatalError));
    interface.rememberIn(places.windowMemory());
    sayWhenReady(interface.load());
    if (!document.isEmpty())
        interface.open(document);
    const QuitSignals quitSignals;
    return QGuiApplication::exec();
}

int start()
{
    const StoragePlaces places;
    if (const std::optional<QString> problem = places.prepare()) {
        printFailure(*problem);
        notify(*problem);
        return EXIT_FAILURE;
    }
    SingleInstance instance(places.instanceLock());
    const QUrl document = documentOnCommandLine();
    switch (instance.start(document)) {
    case SingleInstance::Outcome::First:
        return run(places, instance, document);
    case SingleInstance::Outcome::OtherShown:
        return EXIT_SUCCESS;
    case SingleInstance::Outcome::OtherRunning:
        break;
    }
    return EXIT_FAILURE;
}

} // namespace

} // namespace giggle

int main(int argc, char* argv[])
{
    giggle::ignoreWriteSignals();
    const bool isPlatformGiven = qEnvironmentVariableIsSet(giggle::PlatformVariable);
    if (!isPlatformGiven)
        giggle::choosePlatformPlugin();
    const QGuiApplication application(argc, argv);
    if (giggle::isWithoutDisplay()) {
        if (!isPlatformGiven) {
            giggle::printFailure(QStringLiteral("There is no display that a window could be shown on."));
            // Nobody could see or end it, and every later start would find an instance that runs already.
            if (giggle::isStartedByBus())
                return EXIT_FAILURE;
        }
        // There is no graphics card to draw with either.
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
    giggle::introduceApplication();
    return giggle::start();
}
