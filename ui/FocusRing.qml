// SPDX-License-Identifier: MIT
// Drawn around its parent while that has the keyboard; `visible` says when.
import QtQuick
import GiggleArchives

Rectangle {
    anchors.fill: parent
    anchors.margins: -3
    radius: Theme.radius + 3
    color: "transparent"
    border.width: 3
    border.color: Theme.focus
}
