// SPDX-License-Identifier: MIT
// The button that turns a table's order round, and tells a screen reader which one it is.
import QtQuick
import GiggleArchives

TableTool {
    required property bool isAscending

    objectName: "SortButton"
    text: qsTr("Sort")
    iconSource: Theme.icon("sort", false)
    Accessible.description: !enabled ? qsTr("unavailable") : isAscending ? qsTr("ascending") : qsTr("descending")
}
