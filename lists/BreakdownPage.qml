// SPDX-License-Identifier: MIT
// What both breakdowns show: tools and search above the jokes. In a wide window tools and search share a line.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property BreakdownTableViewController breakdown

    title: breakdown.title

    Shortcut {
        sequence: "Ctrl+P"
        enabled: page.isActive
        onActivated: page.breakdown.PrintJokes()
    }

    SearchTools {
        id: tools

        y: Theme.unit / 2
        searched: table
        isActive: page.isActive
        placeholderText: page.breakdown.searchPlaceholder
        searchText: page.breakdown.searchText
        onSearchTextChanged: page.breakdown.searchText = searchText

        SortTool {
            isAscending: page.breakdown.SortAsc
            onClicked: page.breakdown.SortData()
        }
        TableTool {
            objectName: "ShareButton"
            text: qsTr("Share")
            iconSource: Theme.icon("share", false)
            onClicked: page.breakdown.shareButtonClicked()
        }
        TableTool {
            objectName: "PrintButton"
            text: qsTr("Print")
            iconSource: Theme.icon("print", false)
            onClicked: page.breakdown.PrintJokes()
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
            id: jokeRow

            hasMenu: true
            onClicked: page.breakdown.selectRow(index)
            onFavoriteTicked: checked => page.breakdown.checkBoxClicked(index, checked)
            onCopyPressed: page.breakdown.copyRow(index)
            onMenuRequested: (x, y) => rowMenu.openFor(jokeRow, x, y)
        }
        emptyTitle: page.breakdown.searchText.length > 0 ? qsTr("Nothing found") : qsTr("No jokes left here")
        emptyHint: page.breakdown.searchText.length > 0 ? qsTr("Try fewer letters.") : qsTr("They have moved on: go back to find them.")
    }

    JokeRowMenu {
        id: rowMenu

        owner: page
        onCopyChosen: row => page.breakdown.copyRow(row)
    }
}
