// SPDX-License-Identifier: MIT
#include "shell/ViewController.h"

#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ViewControllerTest : public ScreenFixture {
protected:
    void provideStarter(const QByteArray& text)
    {
        const QString path = folder.filePath(u"starter"_s);
        writeBytes(path, text);
        system.resources.paths.insert(u"GiggleArchives.txt"_s, path);
    }

    void startWith(const QString& otherPreferences)
    {
        Preferences preferences(otherPreferences);
        ScreenEnvironment other{appDelegate, preferences, selection, navigator, mainQueue, system.platform};
        ViewController(other).viewDidLoad();
    }

    [[nodiscard]] bool isFlagStored() const
    {
        return Preferences(preferenceFile).boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag);
    }

    QString preferenceFile = folder.filePath(u"preferences.json"_s);
    ViewController menu{environment};
};

TEST_F(ViewControllerTest, TheFirstLaunchSeedsAndRecommends)
{
    provideStarter(
        "[GIGGLEARCHIVES]\r\nPuns^Mild^1^T^It's\r\n[CATEGORY]\r\nPuns\r\n[RATING]\r\nOnly in the file\r\n");
    menu.viewDidLoad();
    std::vector<std::string> expected{"1|Puns|1|1|Its|Mild"};
    for (int oid = 1; oid <= 18; ++oid)
        expected.push_back(std::to_string(oid) + "|NULL"); // the default categories have no names
    for (const char* row : {"19|Puns", "1|All Ages", "2|Children", "3|Teenagers", "4|Mild", "5|Mild+",
                            "6|Moderate", "7|Adult", "8|Adult+"})
        expected.push_back(row);
    EXPECT_EQ(liveRows(context()), expected);
    EXPECT_EQ(storedRows(folder.file()), expected);
    EXPECT_EQ(navigator.alerts.size(), 1U);
    EXPECT_TRUE(isFlagStored());
}

TEST_F(ViewControllerTest, AStarterFileThatCannotBeReadEndsTheProgramAfterTheFlagWasStored)
{
    EXPECT_DEATH(menu.viewDidLoad(), "GiggleArchives.txt is missing");
    EXPECT_TRUE(isFlagStored());
    system.resources.paths.insert(u"GiggleArchives.txt"_s, folder.filePath(u"gone"_s));
    EXPECT_DEATH(menu.viewDidLoad(), "cannot be read");
    provideStarter("[GIGGLEARCHIVES]\nPuns^Mild^1^T^\xFF\n");
    EXPECT_DEATH(menu.viewDidLoad(), "UTF-8");
    provideStarter("[GIGGLEARCHIVES]\nPuns^Mild^1^T^caf\xC3\xA9\n");
    EXPECT_DEATH(menu.viewDidLoad(), "ASCII");
}

TEST_F(ViewControllerTest, NothingIsSeededOverACollectionWhenTheFlagCannotBeStored)
{
    addJoke({.id = 1, .joke = "mine"});
    startWith(folder.filePath(u"no such folder/preferences.json"_s));
    EXPECT_EQ(liveRows(context()).size(), 1U);
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(ViewControllerTest, AFlagThatDamagedPreferencesProveIsStored)
{
    writeBytes(preferenceFile, "torn");
    startWith(preferenceFile);
    QFile::remove(preferenceFile + u".damaged"_s);
    EXPECT_TRUE(isFlagStored());
}

TEST_F(ViewControllerTest, EveryLaterLaunchLeavesTheCollectionUnopened)
{
    userDefaults.setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true);
    menu.viewDidLoad();
    EXPECT_EQ(selection.CallingScreen, u"MainMenu"_s);
    menu.prepareForSegue(SegueId::TabBarController);
    EXPECT_EQ(navigator.navigationBarHidden, true);
    selection.CallingScreen = u"MainList"_s;
    menu.viewWillAppear();
    EXPECT_EQ(selection.CallingScreen, u"MainMenu"_s);
    EXPECT_EQ(navigator.navigationBarHidden, false);
    EXPECT_FALSE(QFile::exists(folder.file()));
}

} // namespace

} // namespace giggle
