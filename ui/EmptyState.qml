// SPDX-License-Identifier: MIT
// What stands where an empty list would leave a blank: what is missing, and what to do about it.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Column {
    property alias title: titleLabel.text
    property alias hint: hintLabel.text

    spacing: Theme.unit

    Label {
        id: titleLabel

        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.titleSize
        font.bold: true
    }
    Label {
        id: hintLabel

        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.mutedText
        font.pixelSize: Theme.bodySize
    }
}
