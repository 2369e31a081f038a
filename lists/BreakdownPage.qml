// SPDX-License-Identifier: MIT
// What both breakdowns show: tools and search above the jokes. In a wide window tools and search share a line.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property BreakdownTableViewController breakdown
    readonly property bool isWide: width >= 560

    title: breakdown.title

    Shortcut {
        sequence: "Ctrl+P"
        enabled: page.isActive && printButton.enabled
        onActivated: printButton.clicked()
    }
    Shortcut {
        sequence: "Ctrl+F"
        enabled: page.isActive
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
                objectName: "SortButton"
                text: qsTr("Sort")
                iconSource: Theme.icon("sort", false)
                onClicked: page.breakdown.SortData()
            }
            ToolButton {
                objectName: "ShareButton"
                text: qsTr("Share")
                iconSource: Theme.icon("share", false)
                enabled: false
            }
            ToolButton {
                id: printButton

                objectName: "PrintButton"
                text: qsTr("Print")
                iconSource: Theme.icon("print", false)
                enabled: false
            }
        }
        SearchField {
            id: searchBar

            Layout.fillWidth: true
            placeholderText: page.breakdown.searchPlaceholder
            text: page.breakdown.searchText
            onTextChanged: page.breakdown.searchText = text
            Keys.onDownPressed: table.forceActiveFocus(Qt.TabFocusReason)
        }
    }

    TableHeader {
        id: header

        anchors.top: tools.bottom
        anchors.topMargin: Theme.unit
        width: parent.width
        isPlain: true
        text: page.breakdown.tableView.headerText
    }

    TableList {
        id: table

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        name: page.title
        model: page.breakdown.tableView
        delegate: NewMainListRow {
            onClicked: page.breakdown.selectRow(index)
            onFavoriteTicked: checked => page.breakdown.checkBoxClicked(index, checked)
        }
        emptyTitle: page.breakdown.searchText.length > 0 ? qsTr("Nothing found") : qsTr("No jokes left here")
        emptyHint: page.breakdown.searchText.length > 0 ? qsTr("Try fewer letters.") : qsTr("They have moved on: go back to find them.")
    }
}
