// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

class AppDelegate;
class MainQueue;
class Navigator;
class Preferences;
struct Platform;
struct SharedSelection;

/// Everything that a screen needs, handed to its constructor as one reference. All of it outlives every
/// screen.
struct ScreenEnvironment {
    AppDelegate& appDelegate;
    Preferences& userDefaults;
    SharedSelection& selection;
    Navigator& navigator;
    MainQueue& mainQueue;
    Platform& platform;
};

} // namespace giggle
