// SPDX-License-Identifier: MIT
// A labelled whole number with a button on either side of it. `stepped` tells of every new value, however it
// came about; `value` follows what the owner holds.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: control

    required property string name
    property int value: 1
    property alias from: box.from
    property alias to: box.to

    signal stepped(int value)

    implicitWidth: 200
    implicitHeight: box.y + box.height

    onValueChanged: box.value = value

    FieldLabel {
        id: label

        width: parent.width
        text: control.name
    }
    SpinBox {
        id: box

        y: label.height + Theme.unit / 2
        width: parent.width
        height: Math.max(Theme.touchTarget, implicitContentHeight + 2 * Theme.unit)
        padding: 0
        leftPadding: down.indicator.width
        rightPadding: up.indicator.width
        focus: true
        editable: true
        value: 1
        font.pixelSize: Theme.bodySize
        Accessible.name: control.name
        onValueChanged: control.stepped(value)

        contentItem: TextInput {
            text: box.displayText
            font: box.font
            color: Theme.text
            selectionColor: Theme.tint
            selectedTextColor: Theme.tintInk
            horizontalAlignment: Qt.AlignHCenter
            verticalAlignment: Qt.AlignVCenter
            validator: box.validator
            inputMethodHints: Qt.ImhDigitsOnly
            selectByMouse: true
        }
        background: Rectangle {
            radius: Theme.fieldRadius
            color: Theme.surface
            border.width: 1
            border.color: Theme.line

            FocusRing {
                radius: Theme.fieldRadius + 3
                visible: box.activeFocus
            }
        }
        down.indicator: StepMark {
            sign: "\u2212"
            isUsable: box.value > box.from
            isDown: box.down.pressed
        }
        up.indicator: StepMark {
            x: box.width - width
            sign: "+"
            isUsable: box.value < box.to
            isDown: box.up.pressed
        }
    }

    component StepMark: Rectangle {
        id: mark

        required property string sign
        required property bool isUsable
        required property bool isDown

        width: Math.max(Theme.touchTarget, Theme.iconSize + 2 * Theme.unit)
        height: parent?.height ?? 0
        radius: Theme.fieldRadius
        color: isDown ? Qt.tint(Theme.yellow, "#30808080") : Theme.yellow
        border.width: 1
        border.color: Theme.line
        opacity: isUsable ? 1 : 0.5

        Text {
            anchors.centerIn: parent
            text: mark.sign
            color: Theme.brightInk
            font.pixelSize: Theme.bodySize
            font.bold: true
        }
    }
}
