// SPDX-License-Identifier: MIT
// A box that is unchecked, checked or mixed. A tap, Space or a screen reader's press toggles it (mixed
// becomes checked) and sends `clicked`; setting `checkState` sends nothing.
import QtQuick
import GiggleArchives

Item {
    id: box

    /// Qt.Unchecked, Qt.Checked or Qt.PartiallyChecked.
    property int checkState: Qt.Unchecked
    /// For a screen reader; the box draws no text.
    required property string name
    readonly property bool checked: checkState === Qt.Checked
    readonly property real strokeWidth: frame.width / 8

    signal clicked

    implicitWidth: Theme.touchTarget
    implicitHeight: Theme.touchTarget
    activeFocusOnTab: true

    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.checkStateMixed: checkState === Qt.PartiallyChecked
    Accessible.onPressAction: if (enabled) toggle()
    Accessible.onToggleAction: if (enabled) toggle()
    Keys.onSpacePressed: toggle()

    Rectangle {
        id: frame

        anchors.centerIn: parent
        width: Theme.iconSize
        height: width
        radius: width / 4
        color: box.checkState === Qt.Unchecked ? "#ffffff" : Theme.tint
        border.width: Theme.borderWidth
        border.color: Theme.buttonBorder

        // The mark's strokes meet at its lowest point; the short one is also the bar of the mixed state.
        Rectangle {
            visible: box.checkState !== Qt.Unchecked
            x: box.checked ? frame.width * 0.42 - width : (frame.width - width) / 2
            y: box.checked ? frame.height * 0.72 - height / 2 : (frame.height - height) / 2
            width: frame.width * (box.checked ? 0.29 : 0.5)
            height: box.strokeWidth
            radius: height / 2
            transformOrigin: Item.Right
            rotation: box.checked ? 45 : 0
            antialiasing: true
        }
        Rectangle {
            visible: box.checked
            x: frame.width * 0.42 - height / 2
            y: frame.height * 0.72 - height / 2
            width: frame.width * 0.62
            height: box.strokeWidth
            radius: height / 2
            transformOrigin: Item.Left
            rotation: -52
            antialiasing: true
        }
        FocusRing {
            visible: box.activeFocus
            radius: frame.radius + 3
        }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: box.toggle()
    }

    function toggle() {
        checkState = checked ? Qt.Unchecked : Qt.Checked;
        clicked();
    }
}
