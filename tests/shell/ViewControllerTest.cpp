// SPDX-License-Identifier: MIT
#include "shell/ViewController.h"

#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <QFile>

#include <gmock/gmock.h>

namespace giggle {

namespace {

class ViewControllerTest : public ScreenFixture {
protected:
    void setLaunchedBefore() { userDefaults.setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true); }

    ViewController menu{environment};
};

} // namespace

TEST_F(ViewControllerTest, TheFirstLaunchSeedsAndRecommends)
{
    system.resources.paths.insert(QStringLiteral("GiggleArchives.txt"),
                                  QStringLiteral(GIGGLE_SOURCE_DIR "/resources/GiggleArchives.txt"));
    menu.viewDidLoad();
    EXPECT_GE(context().fetch(Jokes::fetchRequest()).size(), 150U);
    EXPECT_EQ(context().fetch(Category::fetchRequest()).size(), 36U);
    EXPECT_EQ(context().fetch(Rating::fetchRequest()).size(), 8U);
    EXPECT_FALSE(context().hasChanges());

    ASSERT_EQ(navigator.alerts.size(), 1U);
    EXPECT_EQ(navigator.alerts[0].title, QStringLiteral("Initial Setup Recomendations?"));
    EXPECT_EQ(
        navigator.alerts[0].message,
        QStringLiteral("It's recommended that you go to the User Default Settings Menu and select a custom "
                       "font and font color to enhance your experience."));
    ASSERT_EQ(navigator.alerts[0].actions.size(), 1U);
    EXPECT_EQ(navigator.alerts[0].actions[0].title, QStringLiteral("Ok"));

    const Preferences nextLaunch(folder.filePath(QStringLiteral("preferences.json")));
    EXPECT_TRUE(nextLaunch.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
}

TEST_F(ViewControllerTest, NothingIsSeededOverACollectionWhenTheFlagCannotBeStored)
{
    Preferences withoutPlace(folder.filePath(QStringLiteral("no such folder/preferences.json")));
    ScreenEnvironment withoutStorage{appDelegate, withoutPlace, selection,
                                     navigator,   mainQueue,    system.platform};
    addJoke({.id = 1, .joke = "mine"});
    ViewController(withoutStorage).viewDidLoad();
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 1U);
    EXPECT_TRUE(context().fetch(Rating::fetchRequest()).empty());
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(ViewControllerTest, AConcludedFlagIsStored)
{
    const QString file = folder.filePath(QStringLiteral("preferences.json"));
    writeBytes(file, "torn");
    Preferences damaged(file);
    ScreenEnvironment afterDamage{appDelegate, damaged, selection, navigator, mainQueue, system.platform};
    ViewController(afterDamage).viewDidLoad();
    QFile::remove(file + QStringLiteral(".damaged"));
    EXPECT_TRUE(Preferences(file).boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
}

TEST_F(ViewControllerTest, TheFlagIsStoredBeforeASeedingThatFails)
{
    EXPECT_DEATH(menu.viewDidLoad(), "is missing");
    const Preferences nextLaunch(folder.filePath(QStringLiteral("preferences.json")));
    EXPECT_TRUE(nextLaunch.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
}

TEST_F(ViewControllerTest, EveryLaterLaunchLeavesTheCollectionUnopened)
{
    setLaunchedBefore();
    ::testing::internal::CaptureStdout();
    menu.viewDidLoad();
    menu.viewWillAppear();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Not First Launch\n");
    EXPECT_FALSE(QFile::exists(folder.file()));
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(ViewControllerTest, EveryAppearanceStartsAnew)
{
    setLaunchedBefore();
    menu.viewDidLoad();
    EXPECT_EQ(selection.CallingScreen, QStringLiteral("MainMenu"));
    menu.HandleSelection();
    menu.prepareForSegue(SegueId::JokeList);
    EXPECT_EQ(navigator.navigationBarHidden, std::nullopt);
    menu.prepareForSegue(SegueId::TabBarController);
    EXPECT_EQ(navigator.navigationBarHidden, true);
    selection.CallingScreen = QStringLiteral("MainList");

    menu.viewWillAppear();
    EXPECT_TRUE(menu.areaButtonsHidden());
    EXPECT_EQ(selection.CallingScreen, QStringLiteral("MainMenu"));
    EXPECT_EQ(navigator.navigationBarHidden, false);
}

TEST_F(ViewControllerTest, BothMenuRoutesEndHere)
{
    EXPECT_TRUE(menu.isTargetOf(UnwindRoute::ToMenu));
    EXPECT_TRUE(menu.isTargetOf(UnwindRoute::ToMainMenu));
    EXPECT_FALSE(menu.isTargetOf(UnwindRoute::ToList));
}

} // namespace giggle
