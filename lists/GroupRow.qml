// SPDX-License-Identifier: MIT
// One name on a group screen, with the number of its jokes.
import QtQuick
import GiggleArchives

SwipeRow {
    id: row

    required property groupTableViewCell cell
    readonly property real margin: 1.5 * Theme.unit

    name: cell.accessibleName
    height: Math.max(Theme.touchTarget, label.implicitHeight + 2 * Theme.unit)

    Text {
        id: label

        x: row.margin
        width: count.x - x - Theme.unit
        height: row.height
        verticalAlignment: Text.AlignVCenter
        text: row.cell.NameLabel.slice(0, 500).replace(/\s+/g, " ") // more never fits
        textFormat: Text.PlainText
        color: Theme.brightInk
        font.pixelSize: Theme.bodySize
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
    }
    Text {
        id: count

        x: row.width - width - row.margin
        height: row.height
        verticalAlignment: Text.AlignVCenter
        text: row.cell.CountLabel
        textFormat: Text.PlainText
        color: Theme.brightInk
        font.pixelSize: Theme.bodySize
        font.bold: true
    }
}
