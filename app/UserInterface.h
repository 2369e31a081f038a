// SPDX-License-Identifier: MIT
#pragma once

#include "app/Storyboard.h"
#include "app/WindowMemory.h"
#include "exchange/DocumentOpening.h"
#include "platform/Platform.h"
#include "ui/Appearance.h"
#include "ui/NavigationController.h"
#include "ui/ReviewInvitation.h"
#include "ui/ScreenEnvironment.h"
#include "ui/SharedSelection.h"
#include "ui/TimerMainQueue.h"
#include "ui/WindowDocumentPicker.h"
#include "ui/WindowPrintPanel.h"
#include "ui/WindowShareSheet.h"

#include <QQmlApplicationEngine>
#include <QTemporaryDir>

class QQuickWindow;

namespace giggle {

/// The window with all its screens, put together over a collection, settings and a platform that outlive it.
/// Needs a QGuiApplication.
class UserInterface {
public:
    /// What @p platform leaves out of what a window can bring itself is filled in.
    UserInterface(AppDelegate& appDelegate, Preferences& userDefaults, Platform platform);

    /// Writes down what is remembered.
    ~UserInterface();

    UserInterface(const UserInterface&) = delete;
    UserInterface& operator=(const UserInterface&) = delete;

    /// Lets window and lists be as @p file says, and as they are at the end be written into it. Without this
    /// call nothing outlives the window. Called before load().
    void rememberIn(const QString& file) { m_memory.open(file); }

    /// Shows the window with the root screen, and brings it to the front again whenever the system asks for
    /// it. Called once. A window that cannot be loaded ends the program.
    QQuickWindow& load();

    /// Leads to the import screen with that file.
    void open(const QUrl& document) { m_documentOpening.open(document); }

    [[nodiscard]] NavigationController& navigation() { return m_navigation; }

    /// The window's own; where the platform brings another one, nobody asks it.
    [[nodiscard]] WindowDocumentPicker& documentPicker() { return m_documentPicker; }

    /// What the screens find of the system.
    [[nodiscard]] const Platform& platform() const { return m_platform; }

private:
    void completePlatform();

    QTemporaryDir m_temporaryFolder;
    TimerMainQueue m_mainQueue;
    SharedSelection m_selection;
    WindowMemory m_memory{m_selection.listPlaces};
    Platform m_platform;
    Storyboard m_storyboard;
    NavigationController m_navigation;
    ScreenEnvironment m_environment;
    Appearance m_appearance;
    ReviewInvitation m_reviewInvitation;
    WindowDocumentPicker m_documentPicker{m_navigation};
    WindowShareSheet m_shareSheet;
    WindowPrintPanel m_printPanel;
    DocumentOpening m_documentOpening;
    QQmlApplicationEngine m_engine;
};

} // namespace giggle
