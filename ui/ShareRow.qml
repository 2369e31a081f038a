// SPDX-License-Identifier: MIT
// A row of the share sheet: an icon and what pressing the row does.
import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppButton {
    id: row

    property string iconName

    isProminent: true

    contentItem: RowLayout {
        spacing: 2 * Theme.unit

        Image {
            source: row.iconName ? Theme.icon(row.iconName, false) : ""
            sourceSize.width: Theme.iconSize
            sourceSize.height: Theme.iconSize
        }
        Text {
            Layout.fillWidth: true
            text: row.text
            textFormat: Text.PlainText
            font: row.font
            color: row.ink
            wrapMode: Text.Wrap
        }
    }
}
