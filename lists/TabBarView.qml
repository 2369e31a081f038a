// SPDX-License-Identifier: MIT
// The jokes by category and by rating, in two tabs.
import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property TabBarController screen

    title: screen.title

    GroupPane {
        id: categories

        anchors.top: parent.top
        anchors.bottom: tabs.top
        width: parent.width
        visible: page.screen.selectedIndex === 0
        focus: true
        onVisibleChanged: page.follow(categories)
        isActive: page.isActive && visible
        screen: page.screen.CategoryGroups
        title: page.title
    }
    GroupPane {
        id: ratings

        anchors.fill: categories
        visible: page.screen.selectedIndex === 1
        onVisibleChanged: page.follow(ratings)
        isActive: page.isActive && visible
        screen: page.screen.RatingGroups
        title: page.title
    }
    TabStrip {
        id: tabs

        anchors.bottom: parent.bottom
        width: parent.width
        titles: page.screen.tabTitles
        currentIndex: page.screen.selectedIndex
        onActivated: index => page.screen.selectedIndex = index
    }

    /// The keyboard goes to the group screen that comes into sight, unless the tabs have it.
    function follow(pane: Item) {
        if (pane.visible && !tabs.activeFocus)
            pane.focus = true;
    }
}
