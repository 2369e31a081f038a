// SPDX-License-Identifier: MIT
// A labelled whole number with a button on either side of it, which can also be typed. `number` is bound by the
// owner; `stepped` tells of every other one that the user wants.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: control

    required property string name
    property int number: 1
    property int from: 0
    property int to: 100

    // A screen reader finds these four by their names, and sets the value.
    property int value: number
    readonly property int minimumValue: from
    readonly property int maximumValue: to
    readonly property int stepSize: 1

    signal stepped(int number)

    implicitWidth: 200
    implicitHeight: line.y + line.height
    Accessible.role: Accessible.SpinBox
    Accessible.name: name
    Accessible.description: enabled ? "" : qsTr("unavailable")
    onValueChanged: {
        if (value === number)
            return;
        if (enabled)
            stepped(value);
        value = Qt.binding(() => number); // which setting it has undone
    }
    Keys.onUpPressed: step(1)
    Keys.onDownPressed: step(-1)

    FieldLabel {
        id: label

        width: parent.width
        text: control.name
    }
    Rectangle {
        id: line

        y: label.height + Theme.unit / 2
        width: parent.width
        height: Math.max(Theme.touchTarget, Math.round(1.5 * Theme.bodySize) + 2 * Theme.unit)
        radius: Theme.fieldRadius
        color: Theme.surface
        border.width: 1
        border.color: Theme.line

        TextInput {
            anchors.fill: parent
            focus: true
            text: control.number
            color: Theme.text
            selectionColor: Theme.tint
            selectedTextColor: Theme.tintInk
            font.pixelSize: Theme.bodySize
            horizontalAlignment: Qt.AlignHCenter
            verticalAlignment: Qt.AlignVCenter
            inputMethodHints: Qt.ImhDigitsOnly
            selectByMouse: true
            activeFocusOnTab: true
            validator: IntValidator {
                bottom: control.from
                top: control.to
            }
            Accessible.name: control.name
            Accessible.description: control.Accessible.description
            onTextEdited: if (acceptableInput)
                control.stepped(parseInt(text))
            onActiveFocusChanged: {
                if (activeFocus)
                    selectAll(); // what is typed then takes its place
                else
                    text = Qt.binding(() => control.number); // what was typed may be no number
            }

            FocusRing {
                radius: Theme.fieldRadius + 3
                visible: parent.activeFocus
            }
        }
        StepButton {
            sign: "\u2212"
            text: qsTr("Fewer")
            enabled: control.number > control.from
            onClicked: control.step(-1)
        }
        StepButton {
            anchors.right: parent.right
            sign: "+"
            text: qsTr("More")
            enabled: control.number < control.to
            onClicked: control.step(1)
        }
    }

    component StepButton: AbstractButton {
        id: button

        required property string sign

        width: Math.max(Theme.touchTarget, Theme.iconSize + 2 * Theme.unit)
        height: parent?.height ?? 0
        focusPolicy: Qt.NoFocus // Up and Down do the same
        autoRepeat: true
        Accessible.name: text
        Accessible.description: enabled ? "" : qsTr("unavailable")
        Accessible.onPressAction: if (enabled) clicked()

        background: Rectangle {
            radius: Theme.fieldRadius
            color: button.down ? Qt.tint(Theme.yellow, "#30808080") : Theme.yellow
            border.width: 1
            border.color: Theme.line
            opacity: button.enabled ? 1 : 0.5
        }
        contentItem: Text {
            text: button.sign
            color: Theme.brightInk
            font.pixelSize: Theme.bodySize
            font.bold: true
            horizontalAlignment: Qt.AlignHCenter
            verticalAlignment: Qt.AlignVCenter
        }
    }

    function step(by: int) {
        const next = Math.max(from, Math.min(to, number + by));
        if (next !== number)
            stepped(next);
    }
}
