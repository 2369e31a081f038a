// SPDX-License-Identifier: MIT
// The title on top of a dialog's content, in one line unless its user lets it wrap.
import QtQuick
import GiggleArchives

Text {
    textFormat: Text.PlainText
    color: Theme.text
    font.pixelSize: Theme.titleSize
    font.bold: true
    horizontalAlignment: Text.AlignHCenter
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
