// SPDX-License-Identifier: MIT
// Rows that lead out of the application. Each is a button over the whole width of the table.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property RateShareTableViewController screen

    title: screen.title

    TableList {
        anchors.fill: parent
        focus: true
        name: page.title
        model: page.screen.rows

        delegate: SwipeRow {
            id: row

            required property string modelData

            name: modelData
            height: Math.max(Theme.touchTarget, title.implicitHeight + 2 * Theme.unit)
            onClicked: page.screen.didSelectRow(index)
            onSpacePressed: clicked()

            Text {
                id: title

                anchors.fill: parent
                anchors.leftMargin: 2 * Theme.unit
                anchors.rightMargin: 2 * Theme.unit
                text: row.modelData
                color: Theme.brightInk
                font.pixelSize: Theme.bodySize
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.Wrap
            }
        }
    }
}
