// SPDX-License-Identifier: MIT
// The line above a table's rows that counts them: a heading.
import QtQuick
import GiggleArchives

Rectangle {
    property alias text: label.text

    implicitHeight: label.implicitHeight + Theme.unit
    color: Theme.headerBackground

    Text {
        id: label

        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        color: Theme.headerText
        font.bold: true
        font.pixelSize: Theme.headerSize
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
