// SPDX-License-Identifier: MIT
// What the pages of the name lists share: tools, the search where the list has one, and the rows. In a wide window
// tools and search share a line, so that a low one has room for rows.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property NameListViewController controller
    property alias rows: table.delegate
    readonly property bool isSearching: controller.hasSearch && controller.searchText.length > 0

    title: controller.title

    Shortcut {
        sequence: "Ctrl+N"
        enabled: page.isActive
        onActivated: addButton.clicked()
    }

    SearchTools {
        id: tools

        y: Theme.unit / 2
        searched: table
        isActive: page.isActive
        hasSearch: page.controller.hasSearch
        placeholderText: page.controller.searchPlaceholder
        searchText: page.controller.searchText
        resultTexts: page.controller.resultTexts
        onSearchTextChanged: page.controller.searchText = searchText

        TableTool {
            id: addButton

            objectName: "AddButton"
            text: qsTr("Add")
            iconSource: Theme.icon("add", false)
            onClicked: page.controller.AddTapped()
        }
        SortTool {
            isAscending: page.controller.SortAsc
            onClicked: page.controller.SortButtonTapped()
        }
    }

    TableHeader {
        id: header

        anchors.top: tools.bottom
        anchors.topMargin: Theme.unit
        width: parent.width
        text: page.controller.tableView.headerText
    }

    TableList {
        id: table

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        name: page.title
        model: page.controller.tableView
        emptyTitle: page.isSearching ? qsTr("Nothing found") : page.controller.emptyTitle
        emptyHint: page.isSearching ? qsTr("Try fewer letters.") : page.controller.emptyHint
        emptyAction: page.isSearching ? "" : page.controller.addTitle
        onEmptyActionTriggered: page.controller.AddTapped()
    }
}
