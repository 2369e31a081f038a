// SPDX-License-Identifier: MIT
// What the pages of the name lists share: tools, the search where the list has one, and the rows. In a wide window
// tools and search share a line, so that a low one has room for rows.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property NameListViewController controller
    property alias rows: table.delegate
    readonly property bool isWide: width >= 560
    readonly property bool isSearching: controller.hasSearch && controller.searchText.length > 0

    title: controller.title

    Shortcut {
        sequence: "Ctrl+N"
        enabled: page.isActive
        onActivated: addButton.clicked()
    }
    Shortcut {
        sequence: "Ctrl+F"
        enabled: page.isActive && page.controller.hasSearch
        onActivated: {
            searchBar.forceActiveFocus(Qt.ShortcutFocusReason);
            searchBar.selectAll();
        }
    }

    component ToolButton: IconButton {
        Layout.fillWidth: !page.isWide
        Layout.preferredWidth: 1.5 * Theme.touchTarget
        fill: Theme.yellow
    }

    GridLayout {
        id: tools

        y: Theme.unit / 2
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width - 2 * Theme.unit, Theme.readableWidth)
        columns: page.isWide ? 2 : 1
        columnSpacing: Theme.unit
        rowSpacing: Theme.unit

        RowLayout {
            Layout.fillWidth: !page.isWide
            spacing: Theme.unit

            ToolButton {
                id: addButton

                objectName: "AddButton"
                text: qsTr("Add")
                iconSource: Theme.icon("add", false)
                onClicked: page.controller.AddTapped()
            }
            ToolButton {
                objectName: "SortButton"
                text: qsTr("Sort")
                iconSource: Theme.icon("sort", false)
                onClicked: page.controller.SortButtonTapped()
            }
        }
        SearchField {
            id: searchBar

            Layout.fillWidth: true
            visible: page.controller.hasSearch
            placeholderText: page.controller.searchPlaceholder
            text: page.controller.searchText
            onTextChanged: page.controller.searchText = text
            Keys.onDownPressed: table.forceActiveFocus(Qt.TabFocusReason)
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
    }
}
