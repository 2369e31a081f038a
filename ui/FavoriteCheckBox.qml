// SPDX-License-Identifier: MIT
// The check box in the application's colours, at the size of a finger. A screen reader presses it as a tap does.
import QtQuick
import GiggleArchives

VaneCheckbox {
    id: box

    /// For a screen reader; the box draws no text.
    required property string name

    implicitWidth: Theme.touchTarget
    implicitHeight: Theme.touchTarget
    opacity: enabled ? 1 : 0.5
    boxSize: Theme.iconSize
    cornerRadius: boxSize / 4
    boxLineWidth: Theme.borderWidth
    markLineWidth: boxSize / 8
    tintColor: Theme.tint
    uncheckedFillColor: "#ffffff"
    secondaryColor: Theme.buttonBorder
    markColor: Theme.tintInk
    animationDuration: Theme.animationTime

    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.description: enabled ? "" : qsTr("unavailable")
    Accessible.focusable: true
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.checkStateMixed: mixed
    Accessible.onPressAction: toggle()
    Accessible.onToggleAction: toggle()

    FocusRing {
        anchors.fill: undefined
        anchors.centerIn: parent
        width: box.boxSize + 6
        height: width
        visible: box.activeFocus
        radius: box.cornerRadius + 3
    }
}
