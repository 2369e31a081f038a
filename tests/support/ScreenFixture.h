// SPDX-License-Identifier: MIT
#pragma once

#include "store/AppDelegate.h"
#include "store/Preferences.h"
#include "tests/support/CollectionFolder.h"
#include "tests/support/FakeNavigator.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/HandTurnedQueue.h"
#include "ui/ScreenEnvironment.h"
#include "ui/SharedSelection.h"

#include <gtest/gtest.h>

namespace giggle {

/// Everything that a screen needs, over an empty collection in a folder of its own.
class ScreenFixture : public ::testing::Test {
protected:
    [[nodiscard]] ManagedObjectContext& context() { return appDelegate.persistentContainer().viewContext(); }

    /// Inserts a joke and saves it.
    Jokes& addJoke(const JokeValues& values)
    {
        Jokes& joke = insertJoke(context(), values);
        context().save();
        return joke;
    }

    CollectionFolder folder;
    AppDelegate appDelegate{folder.path()};
    Preferences userDefaults{folder.filePath(QStringLiteral("preferences.json"))};
    SharedSelection selection;
    FakeNavigator navigator;
    HandTurnedQueue mainQueue;
    FakePlatform system;
    ScreenEnvironment environment{appDelegate, userDefaults, selection,
                                  navigator,   mainQueue,    system.platform};
};

} // namespace giggle
