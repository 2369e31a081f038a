// SPDX-License-Identifier: MIT
// How far a piece of work has come, from 0 to 1.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

ProgressBar {
    id: bar

    implicitHeight: Theme.unit
    Accessible.name: qsTr("Progress")
    Accessible.description: qsTr("%1 percent").arg(Math.round(100 * value)) // a role without a value of its own

    background: Rectangle {
        radius: height / 2
        color: Theme.surface
        border.width: 1
        border.color: Theme.mutedText
    }
    contentItem: Item {
        Rectangle {
            width: bar.visualPosition * parent.width
            height: parent.height
            radius: height / 2
            color: Theme.focus
        }
    }
}
