// SPDX-License-Identifier: MIT
// Drawn around its parent while that has the keyboard; `visible` says when.
import QtQuick
import GiggleArchives

Rectangle {
    anchors.fill: parent
    anchors.margins: -Theme.focusWidth
    radius: Theme.radius + Theme.focusWidth
    color: "transparent"
    border.width: Theme.focusWidth
    border.color: Theme.focus
}
