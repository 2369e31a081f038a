// SPDX-License-Identifier: MIT
#include "lists/TabBarController.h"

#include <utility>

namespace giggle {

TabBarController::TabBarController(ScreenEnvironment& environment)
    : Screen(environment), m_categoryGroups(environment), m_ratingGroups(environment)
{
}

void TabBarController::viewDidLoad()
{
    loadSelected();
}

void TabBarController::viewWillAppear()
{
    // The breakdowns above show it.
    environment().navigator.setNavigationBarHidden(true);
    selected().viewWillAppear();
}

void TabBarController::viewDidAppear()
{
    selected().viewDidAppear();
}

void TabBarController::viewDidDisappear()
{
    selected().viewDidDisappear();
}

void TabBarController::loadSelected()
{
    if (!std::exchange(m_isLoaded[m_selectedIndex], true))
        selected().viewDidLoad();
}

QStringList TabBarController::tabTitles() const
{
    QStringList titles;
    for (const GroupTableViewController* groups : m_groups)
        titles.append(groups->title());
    return titles;
}

void TabBarController::setSelectedIndex(int index)
{
    if (index < 0 || std::cmp_greater_equal(index, m_groups.size()) || index == selectedIndex())
        return;
    selected().viewDidDisappear();
    m_selectedIndex = static_cast<std::size_t>(index);
    loadSelected();
    selected().viewWillAppear();
    emit selectedIndexChanged();
    selected().viewDidAppear();
}

} // namespace giggle
