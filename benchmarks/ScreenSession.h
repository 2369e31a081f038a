// SPDX-License-Identifier: MIT
#pragma once

#include "app/UserInterface.h"
#include "platform/linux/BundleResources.h"
#include "platform/linux/DesktopAddressOpener.h"
#include "platform/linux/LinuxFileOpener.h"
#include "platform/linux/LinuxFonts.h"
#include "platform/linux/LinuxMailComposer.h"
#include "platform/linux/LinuxMessageCapability.h"
#include "platform/linux/LinuxStoreReview.h"
#include "platform/linux/PortalInterfaceStyle.h"
#include "platform/linux/SingleInstance.h"
#include "store/AppDelegate.h"
#include "store/Preferences.h"

#include <QQuickWindow>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace giggle {

/// The real window over a collection, drawn in software without a display, as a phone would show it.
class ScreenSession {
public:
    explicit ScreenSession(const QString& folder);

    /// Opens the window; returns the seconds until the menu's first frame.
    double openMenu();

    /// Taps Joke List; returns the seconds until the list's first frame, and waits until it has come to rest.
    double openJokeList();

    /// Taps the category with the most jokes; returns the seconds until its first frame.
    double openLargestBreakdown();

    /// Scrolls the joke list by @p frames steps as a quick flick does; returns the seconds that each frame
    /// took.
    std::vector<double> scroll(int frames);

    /// Taps a row in the middle of the joke list; returns the seconds until the editor's first frame, and
    /// waits until it has come to rest.
    double openEditor();

    /// Opens the export screen and taps Export; returns the seconds until the buttons are enabled that hand
    /// the file on.
    double exportFile();

    /// Opens the file as one from outside, and taps Import; returns the seconds that loading and importing
    /// took.
    double importFile(const QString& path);

    /// Ticks the favourite box in the editor and presses Save; returns the seconds until the save is done and
    /// the list has fetched anew.
    double saveInEditor();

private:
    void awaitFrame();
    static void rest();

    /// The screen of the page that shows the item of that name.
    template <class ScreenClass>
    [[nodiscard]] ScreenClass& screenAround(const QString& itemName) const;

    QTemporaryDir m_settings;
    Preferences m_userDefaults;
    AppDelegate m_appDelegate;
    PortalInterfaceStyle m_interfaceStyle;
    LinuxFonts m_fonts;
    BundleResources m_resources;
    SingleInstance m_windowActivation;
    LinuxStoreReview m_storeReview;
    DesktopAddressOpener m_addressOpener;
    LinuxMailComposer m_mailComposer{m_addressOpener, m_settings.filePath(QStringLiteral("outgoing"))};
    LinuxMessageCapability m_messageCapability;
    LinuxFileOpener m_fileOpener{m_addressOpener};
    UserInterface m_interface;
    QQuickWindow* m_window = nullptr;
};

} // namespace giggle
