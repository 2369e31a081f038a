// SPDX-License-Identifier: MIT
// A group screen within the tabs: it has a bar of its own, as the navigation bar is hidden here.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

FocusScope {
    id: pane

    required property GroupTableViewController screen
    /// Stands in the bar, and names the list.
    required property string title
    property bool isActive: false

    NavigationBar {
        id: bar

        width: parent.width
        title: pane.title
        onBackRequested: pane.screen.UnwindSegue()
    }

    SearchTools {
        id: tools

        anchors.top: bar.bottom
        anchors.topMargin: Theme.unit / 2
        isWide: Theme.textScale <= 1.5 || pane.width >= Theme.wideFrom
        searched: table
        isActive: pane.isActive
        placeholderText: pane.screen.searchPlaceholder
        searchText: pane.screen.searchText
        resultTexts: pane.screen.resultTexts
        onSearchTextChanged: pane.screen.searchText = searchText

        SortTool {
            isAscending: pane.screen.SortAsc
            onClicked: pane.screen.SortData()
        }
    }

    TableHeader {
        id: header

        anchors.top: tools.bottom
        anchors.topMargin: Theme.unit
        width: parent.width
        text: pane.screen.tableView.headerText
    }

    TableList {
        id: table

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        name: pane.title
        Accessible.description: pane.screen.headerTitle
        model: pane.screen.tableView
        delegate: GroupRow {
            onClicked: pane.screen.selectRow(index)
        }
        emptyTitle: pane.screen.searchText.length > 0 ? qsTr("Nothing found") : qsTr("No jokes to group yet")
        emptyHint: pane.screen.searchText.length > 0 ? qsTr("Try fewer letters.") : qsTr("Add a joke, or import some from a file: see the menu.")
    }
}
