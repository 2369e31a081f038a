// SPDX-License-Identifier: MIT
// The jokes that are printed, mailed or shared, and the document made of them: side by side in a wide window,
// one below the other in a narrow one.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property PrintViewController screen
    readonly property bool isWide: width >= Theme.wideFrom
    /// What an empty list says: title and hint.
    readonly property list<string> emptyTexts: {
        if (screen.selectedSegment === PrintViewController.FavoritesMode) // a search leaves them all
            return [qsTr("No favorites to print"), qsTr("Mark a joke as one while you edit it.")];
        if (screen.searchText.length > 0)
            return [qsTr("Nothing found"), qsTr("Try fewer letters, or search in another segment.")];
        return [qsTr("No jokes to print"), qsTr("Add a joke, or import some from a file: see the menu.")];
    }

    title: screen.title
    titleView: SegmentedControl {
        titles: page.screen.segmentTitles
        currentIndex: page.screen.selectedSegment
        onActivated: index => page.screen.selectedSegment = index
    }

    Shortcut {
        sequence: "Ctrl+P"
        enabled: page.isActive
        onActivated: page.screen.PrintNotes()
    }

    SearchTools {
        id: tools

        y: Theme.unit / 2
        width: area.width - 2 * Theme.unit
        searched: table
        isActive: page.isActive
        placeholderText: page.screen.searchPlaceholder
        searchText: page.screen.searchText
        onSearchTextChanged: page.screen.searchText = searchText

        TableTool {
            objectName: "PrintButton"
            text: qsTr("Print")
            iconSource: Theme.icon("print", false)
            onClicked: page.screen.PrintNotes()
        }
        TableTool {
            text: qsTr("Email")
            iconSource: Theme.icon("mail", false)
            onClicked: page.screen.EmailFile()
        }
        TableTool {
            text: qsTr("Share")
            iconSource: Theme.icon("share", false)
            onClicked: page.screen.shareButtonClicked()
        }
    }

    Item {
        id: area

        anchors.top: tools.bottom
        anchors.topMargin: Theme.unit
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 2 * Theme.readableWidth)

        TableList {
            id: table

            objectName: "PrintTableView"
            width: page.isWide ? area.width / 2 : area.width
            height: page.isWide ? area.height : area.height / 2
            focus: true
            name: page.title
            model: page.screen.PrintTableView
            delegate: NewMainListRow {
                showsFavorite: false
            }
            emptyTitle: page.emptyTexts[0]
            emptyHint: page.emptyTexts[1]
        }
        LargeTextView {
            objectName: "PrintTextView"
            x: page.isWide ? table.width : Theme.unit
            y: page.isWide ? 0 : table.height + Theme.unit
            width: area.width - x - Theme.unit
            height: area.height - y - Theme.unit
            name: qsTr("Document")
            content: page.screen.PrintTextView
            // As it is printed.
            textSize: Theme.jokeSize(18)
            firstLineSize: Theme.jokeSize(20)
            isBold: true
            plainLine: "-".repeat(34)
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
