// SPDX-License-Identifier: MIT
// A row of the share sheet: an icon and what pressing the row does.
import QtQuick
import GiggleArchives

AppButton {
    id: row

    property string iconName

    fill: Theme.yellow
    ink: Theme.brightInk

    contentItem: Item {
        implicitHeight: Math.max(icon.height, label.implicitHeight)

        Image {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            width: Theme.iconSize
            height: Theme.iconSize
            source: row.iconName ? Theme.icon(row.iconName, false) : ""
            sourceSize.width: Theme.iconSize
            sourceSize.height: Theme.iconSize
        }
        Text {
            id: label

            anchors.left: icon.right
            anchors.leftMargin: 2 * Theme.unit
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            textFormat: Text.PlainText
            font: row.font
            color: row.ink
            wrapMode: Text.Wrap
        }
    }
}
