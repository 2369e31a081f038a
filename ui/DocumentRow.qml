// SPDX-License-Identifier: MIT
// A row of a DocumentList: a folder, or a file with its size.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

Rectangle {
    id: row

    required property int index
    required property string fileName
    required property bool fileIsDir
    required property double fileSize
    /// The file that would be taken.
    property bool isMarked: false

    readonly property ListView list: ListView.view as ListView
    /// The size then stands below the name.
    readonly property bool isNarrow: width < 16 * Theme.bodySize
    readonly property color ink: isMarked ? Theme.brightInk : Theme.text
    readonly property string sizeText: fileIsDir ? "" : Qt.locale().formattedDataSize(fileSize, 1, Locale.DataSizeSIFormat)
    /// Rows that have left the view wait in a pool for their next use, and are not to be found meanwhile.
    property bool pooled: false

    signal pressed

    component SizeText: Text {
        text: row.sizeText
        textFormat: Text.PlainText
        color: row.isMarked ? Theme.brightInk : Theme.mutedText
        font.pixelSize: Theme.smallSize
    }

    width: list ? list.width : 0
    height: Math.max(Theme.touchTarget, texts.implicitHeight + Theme.unit)
    radius: Theme.fieldRadius
    color: isMarked ? Theme.teal : touch.pressed ? Theme.background : Theme.surface
    visible: !pooled
    ListView.onPooled: pooled = true
    ListView.onReused: pooled = false

    Accessible.role: Accessible.ListItem
    Accessible.name: fileName
    Accessible.description: fileIsDir ? qsTr("Folder") : isMarked ? qsTr("%1, chosen").arg(sizeText) : sizeText
    Accessible.focusable: true
    Accessible.selectable: true
    Accessible.selected: ListView.isCurrentItem
    Accessible.onPressAction: if (enabled) pressed()

    Image {
        id: icon

        x: Theme.unit
        anchors.verticalCenter: parent.verticalCenter
        source: Theme.icon(row.fileIsDir ? "folder" : "file", Theme.isDark(row.color))
        sourceSize.width: Theme.iconSize
        sourceSize.height: Theme.iconSize
    }
    Column {
        id: texts

        anchors.left: icon.right
        anchors.right: size.visible ? size.left : parent.right
        anchors.leftMargin: Theme.unit
        anchors.rightMargin: Theme.unit
        anchors.verticalCenter: parent.verticalCenter

        Text {
            width: parent.width
            text: row.fileName
            textFormat: Text.PlainText
            color: row.ink
            font.pixelSize: Theme.bodySize
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        SizeText {
            visible: row.isNarrow && !row.fileIsDir
        }
    }
    SizeText {
        id: size

        anchors.right: parent.right
        anchors.rightMargin: Theme.unit
        anchors.verticalCenter: parent.verticalCenter
        visible: !row.isNarrow && !row.fileIsDir
    }
    FocusRing {
        anchors.margins: 0
        radius: row.radius
        visible: row.ListView.isCurrentItem && row.list !== null && row.list.activeFocus
    }
    MouseArea {
        id: touch

        anchors.fill: parent
        onClicked: row.pressed()
    }
}
