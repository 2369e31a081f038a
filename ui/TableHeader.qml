// SPDX-License-Identifier: MIT
// The line above a table's rows that counts them: a heading, centred and bold, in colours unless it is plain.
import QtQuick
import GiggleArchives

Rectangle {
    id: header

    property alias text: label.text
    property bool isPlain: false

    implicitHeight: label.implicitHeight + Theme.unit
    color: isPlain ? "transparent" : Theme.headerBackground

    Text {
        id: label

        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        color: header.isPlain ? Theme.text : Theme.headerText
        font.bold: true
        font.pixelSize: Theme.headerSize
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
