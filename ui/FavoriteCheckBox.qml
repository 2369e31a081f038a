// SPDX-License-Identifier: MIT
// The check box in the application's colours, at the size of a finger. A screen reader presses it as a tap does.
//
// clicked: the user toggled the box, and `checkState` is the new state. Setting the state sends nothing.
import QtQuick
import GiggleArchives

Item {
    id: control

    /// For a screen reader; the box draws no text.
    required property string name
    /// VaneCheckbox.Unchecked, VaneCheckbox.Checked or VaneCheckbox.Mixed.
    property alias checkState: box.checkState
    property alias animation: box.animation
    readonly property bool checked: box.checked
    readonly property bool mixed: box.mixed
    /// "Unchecked", "Checked" or "Mixed".
    readonly property string stateName: box.stateName

    signal clicked

    implicitWidth: Theme.touchTarget
    implicitHeight: Theme.touchTarget
    activeFocusOnTab: true
    opacity: enabled ? 1 : 0.5

    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.description: enabled ? "" : qsTr("unavailable")
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.checkStateMixed: mixed
    Accessible.onPressAction: toggle()
    Accessible.onToggleAction: toggle()
    Keys.forwardTo: [box]

    VaneCheckbox {
        id: box

        anchors.fill: parent
        boxSize: Theme.iconSize
        cornerRadius: Theme.iconSize / 4
        boxLineWidth: Theme.borderWidth
        markLineWidth: Theme.iconSize / 8
        tintColor: Theme.tint
        secondaryColor: Theme.buttonBorder
        markColor: Theme.tintInk
        animationDuration: Theme.animationTime
        onClicked: control.clicked()

        Item {
            anchors.centerIn: parent
            width: box.boxSize
            height: box.boxSize

            FocusRing {
                visible: control.activeFocus
                radius: box.cornerRadius + 3
            }
        }
    }

    function setCheckState(state: int, animated: bool) {
        box.setCheckState(state, animated);
    }

    function setStateName(name: string, animated: bool) {
        box.setStateName(name, animated);
    }

    /// Does what a tap does; nothing while disabled.
    function toggle() {
        box.toggle();
    }
}
