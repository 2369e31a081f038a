// SPDX-License-Identifier: MIT
// A button that shows an icon. Its `text` is not drawn: it is the accessible name and the tooltip.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

AppButton {
    id: control

    property url iconSource

    leftPadding: Theme.unit
    rightPadding: Theme.unit
    implicitWidth: Math.max(Theme.touchTarget, Theme.iconSize + 2 * Theme.unit)
    ToolTip.text: text
    ToolTip.visible: hovered && !down
    ToolTip.delay: 700

    contentItem: Item {
        implicitWidth: Theme.iconSize
        implicitHeight: Theme.iconSize

        Image {
            anchors.centerIn: parent
            source: control.iconSource
            sourceSize.width: Theme.iconSize
            sourceSize.height: Theme.iconSize
            opacity: control.enabled ? 1 : 0.4
        }
    }
}
