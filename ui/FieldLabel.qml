// SPDX-License-Identifier: MIT
// Stands above a field and names it for the eye; the field itself carries the name for a screen reader. Fields
// that must be filled in have a red label.
import QtQuick
import GiggleArchives

Text {
    property bool isRequired: false

    color: isRequired ? Theme.requiredText : Theme.text
    font.pixelSize: Theme.smallSize
    font.bold: isRequired
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
}
