// SPDX-License-Identifier: MIT
// What stands above a table: its tools, and the search where it has one. In a wide window both share a line, so
// that a low one has room for rows. `searchText` is bound by the owner and follows what is typed. Ctrl+F and an
// arrow down lead into the search and out of it.
import QtQuick
import QtQuick.Layouts
import GiggleArchives

GridLayout {
    id: bar

    /// What the search is for; it leads on to it.
    required property Item searched
    /// Whether Ctrl+F is meant for this search.
    required property bool isActive
    property bool hasSearch: true
    property bool isWide: parent !== null && parent.width >= Theme.wideFrom
    property alias placeholderText: searchBar.hint
    property alias searchText: searchBar.text
    property alias searchBorderColor: searchBar.borderColor
    default property alias tools: toolBox.data
    /// What a screen reader hears of a search that has found nothing, one row, and more: texts.
    property var resultTexts: [qsTr("No jokes found"), qsTr("1 joke"), qsTr("%1 jokes")]
    readonly property TableList table: searched as TableList

    anchors.horizontalCenter: parent ? parent.horizontalCenter : undefined
    width: parent ? Math.min(parent.width - 2 * Theme.unit, Theme.readableWidth) : 0
    columns: isWide ? 2 : 1
    columnSpacing: Theme.unit
    rowSpacing: Theme.unit

    Shortcut {
        sequence: "Ctrl+F"
        enabled: bar.isActive && bar.hasSearch
        onActivated: {
            searchBar.forceActiveFocus(Qt.ShortcutFocusReason);
            searchBar.selectAll();
        }
    }
    RowLayout {
        id: toolBox

        Layout.fillWidth: !bar.isWide
        spacing: Theme.unit
    }
    SearchField {
        id: searchBar

        Layout.fillWidth: true
        visible: bar.hasSearch
        Keys.onDownPressed: if (bar.table?.count !== 0)
            bar.searched.forceActiveFocus(Qt.TabFocusReason)
        onTextChanged: bar.announceSoon()

        Announcement {
            id: result
        }
    }
    Connections {
        target: bar.table

        function onCountChanged() {
            bar.announceSoon();
        }
    }
    // Who is still typing is not told of every letter.
    Timer {
        id: pause

        interval: 500
        onTriggered: {
            const count = bar.table?.count ?? 0;
            result.text = bar.resultTexts[Math.min(count, 2)].replace("%1", count);
        }
    }

    function announceSoon() {
        result.text = "";
        if (isActive && searchText.length > 0)
            pause.restart();
        else
            pause.stop();
    }
}
