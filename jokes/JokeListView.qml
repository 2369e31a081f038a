// SPDX-License-Identifier: MIT
// The joke list: segments in the navigation bar, tools and search above the rows. In a wide window tools and
// search share a line, so that a low one has room for rows.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property NewMainListTableViewController screen
    readonly property bool isSearching: screen.searchText.length > 0
    readonly property bool showsFavorites: screen.selectedSegment === NewMainListTableViewController.FavoritesMode
    /// What an empty list says: title and hint.
    readonly property list<string> emptyTexts: {
        if (showsFavorites) // a search leaves them all
            return [qsTr("No favorites yet"), qsTr("Mark a joke as a favorite while you edit it, and it is listed here.")];
        if (isSearching)
            return [qsTr("Nothing found"), qsTr("Try fewer letters, or search in another segment.")];
        return [qsTr("No jokes yet"), qsTr("Add a joke, or import some from a file: see the menu.")];
    }

    title: screen.title
    titleView: SegmentedControl {
        titles: page.screen.segmentTitles
        currentIndex: page.screen.selectedSegment
        onActivated: index => page.screen.selectedSegment = index
    }

    Shortcut {
        sequence: "Ctrl+N"
        enabled: page.isActive && addButton.enabled
        onActivated: addButton.clicked()
    }
    Shortcut {
        sequence: "Ctrl+P"
        enabled: page.isActive
        onActivated: page.screen.PrintJokes()
    }

    SearchTools {
        id: tools

        y: Theme.unit / 2
        searched: table
        isActive: page.isActive
        searchBorderColor: Theme.buttonBorder
        placeholderText: page.screen.searchPlaceholder
        searchText: page.screen.searchText
        onSearchTextChanged: page.screen.searchText = searchText

        TableTool {
            id: addButton

            objectName: "AddButton"
            text: qsTr("Add")
            iconSource: Theme.icon("add", false)
            borderWidth: 1
            enabled: page.screen.canPerform(Segues.AddJoke)
            onClicked: page.screen.AddTapped()
        }
        SortTool {
            isAscending: page.screen.SortAsc
            borderWidth: 1
            onClicked: page.screen.SortJokesTapped()
        }
        TableTool {
            objectName: "ShareButton"
            text: qsTr("Share")
            iconSource: Theme.icon("share", false)
            borderWidth: 1
            onClicked: page.screen.shareButtonClicked()
        }
        TableTool {
            objectName: "PrintButton"
            text: qsTr("Print")
            iconSource: Theme.icon("print", false)
            borderWidth: 1
            onClicked: page.screen.PrintJokes()
        }
    }

    TableHeader {
        id: header

        anchors.top: tools.bottom
        anchors.topMargin: Theme.unit
        width: parent.width
        text: page.screen.JokeTableView.headerText
    }

    TableList {
        id: table

        objectName: "JokeTableView"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        name: page.title
        model: page.screen.JokeTableView
        delegate: NewMainListRow {
            id: jokeRow

            hasMenu: true
            actionText: qsTr("delete")
            onClicked: page.screen.selectRow(index)
            onActionTriggered: page.screen.deleteRow(index)
            onFavoriteTicked: checked => page.screen.checkBoxClicked(index, checked)
            onCopyPressed: page.screen.copyRow(index)
            onMenuRequested: (x, y) => rowMenu.openFor(jokeRow, x, y)
        }
        emptyTitle: page.emptyTexts[0]
        emptyHint: page.emptyTexts[1]
        emptyAction: page.isSearching || page.showsFavorites || !addButton.enabled ? "" : qsTr("Add Joke")
        onEmptyActionTriggered: page.screen.AddTapped()
    }

    JokeRowMenu {
        id: rowMenu

        owner: page
        onCopyChosen: row => page.screen.copyRow(row)
    }
}
