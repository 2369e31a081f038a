// SPDX-License-Identifier: MIT
#include "shell/ViewController.h"

#include "platform/Platform.h"
#include "shell/FirstLaunchSeeding.h"
#include "store/Console.h"
#include "store/PreferenceKeys.h"
#include "store/Preferences.h"
#include "ui/SharedSelection.h"

namespace giggle {

bool ViewController::isTargetOf(UnwindRoute route) const
{
    return route == UnwindRoute::ToMenu || route == UnwindRoute::ToMainMenu;
}

void ViewController::viewDidLoad()
{
    environment().selection.CallingScreen = CallingScreens::MainMenu.toString();
    checkLaunch();
}

void ViewController::checkLaunch()
{
    Preferences& userDefaults = environment().userDefaults;
    if (userDefaults.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag)) {
        printToConsole(QStringLiteral("Not First Launch"));
        // The flag may only be concluded from a damaged file that was set aside, and that may be tidied away.
        userDefaults.synchronize();
        return;
    }
    // The flag comes first: a seeding that is cut short is never repeated over what it has stored.
    userDefaults.setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true);
    const bool isFlagStored = userDefaults.synchronize();

    FirstLaunchSeeding seeding(environment().appDelegate, environment().platform.resources);
    if (!isFlagStored && !seeding.isCollectionEmpty()) {
        printFailure(
            QStringLiteral("Whether the application was launched before cannot be stored. The collection "
                           "holds something already and is left as it is."));
        return;
    }
    seeding.seedDefaultCategories();
    seeding.seedDefaultRatings();
    seeding.importStarterCollection();

    environment().navigator.present(
        {QStringLiteral("Initial Setup Recomendations?"),
         QStringLiteral(
             "It's recommended that you go to the User Default Settings Menu and select a custom font "
             "and font color to enhance your experience."),
         {{QStringLiteral("Ok"), {}}}});
}

void ViewController::viewWillAppear()
{
    setAreaButtonsHidden(true);
    environment().selection.CallingScreen = CallingScreens::MainMenu.toString();
    environment().navigator.setNavigationBarHidden(false);
}

void ViewController::HandleSelection()
{
    setAreaButtonsHidden(!m_areaButtonsHidden);
}

void ViewController::setAreaButtonsHidden(bool hidden)
{
    if (hidden == m_areaButtonsHidden)
        return;
    m_areaButtonsHidden = hidden;
    emit areaButtonsHiddenChanged();
}

bool ViewController::canPerform(SegueId segue) const
{
    return environment().navigator.canPerform(segue);
}

void ViewController::performSegue(SegueId segue)
{
    environment().navigator.performSegue(segue);
}

void ViewController::prepareForSegue(SegueId segue)
{
    // The tabs bring bars of their own.
    if (segue == SegueId::TabBarController)
        environment().navigator.setNavigationBarHidden(true);
}

} // namespace giggle
