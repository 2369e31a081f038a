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
    property bool isWide: parent !== null && parent.width >= 560
    property alias placeholderText: searchBar.placeholderText
    property alias searchText: searchBar.text
    property alias searchBorderColor: searchBar.borderColor
    default property alias tools: toolBox.data

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
        Keys.onDownPressed: bar.searched.forceActiveFocus(Qt.TabFocusReason)
    }
}
