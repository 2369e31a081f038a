// SPDX-License-Identifier: MIT
#pragma once

#include "app/Storyboard.h"
#include "platform/Platform.h"
#include "ui/Appearance.h"
#include "ui/NavigationController.h"
#include "ui/ReviewInvitation.h"
#include "ui/ScreenEnvironment.h"
#include "ui/SharedSelection.h"
#include "ui/TimerMainQueue.h"

#include <QQmlApplicationEngine>

class QQuickWindow;

namespace giggle {

/// The window with all its screens, put together over a collection, settings and a platform that outlive it.
/// Needs a QGuiApplication.
class UserInterface {
public:
    UserInterface(AppDelegate& appDelegate, Preferences& userDefaults, Platform platform);

    UserInterface(const UserInterface&) = delete;
    UserInterface& operator=(const UserInterface&) = delete;

    /// Shows the window with the root screen, and brings it to the front again whenever the system asks for
    /// it. Called once. A window that cannot be loaded ends the program.
    QQuickWindow& load();

    [[nodiscard]] NavigationController& navigation() { return m_navigation; }

private:
    TimerMainQueue m_mainQueue;
    SharedSelection m_selection;
    Platform m_platform;
    Storyboard m_storyboard;
    NavigationController m_navigation;
    ScreenEnvironment m_environment;
    Appearance m_appearance;
    ReviewInvitation m_reviewInvitation;
    QQmlApplicationEngine m_engine;
};

} // namespace giggle
