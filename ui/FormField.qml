// SPDX-License-Identifier: MIT
// A labelled field of one line. `edited` tells of every new text, typed, pasted, picked or set by a screen
// reader; `text` is bound by the owner and follows what that holds.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: control

    required property string name
    property string text
    property bool isRequired: false
    property bool readOnly: false
    property color borderColor: Theme.line
    property color fill: Theme.surface
    property color ink: Theme.text
    property alias labelColor: label.color
    property alias horizontalAlignment: input.horizontalAlignment
    property alias textFont: input.font
    /// Room at the field's right end that the text leaves free.
    property real ornamentWidth: 0
    /// The field without its label.
    readonly property rect inputArea: Qt.rect(input.x, input.y, input.width, input.height)

    signal edited(string text)
    signal accepted
    signal pressed

    implicitWidth: 200
    implicitHeight: input.y + input.height

    FieldLabel {
        id: label

        width: parent.width
        text: control.name
        isRequired: control.isRequired
    }
    TextField {
        id: input

        y: label.height + Theme.unit / 2
        width: parent.width
        height: Math.max(Theme.touchTarget, contentHeight + 2 * Theme.unit)
        focus: true
        leftPadding: Theme.unit
        rightPadding: Theme.unit + control.ornamentWidth
        maximumLength: 0x7fffffff // there is no limit; the usual one would cut off a longer text that is only shown
        text: control.text
        readOnly: control.readOnly
        color: control.ink
        font.pixelSize: Theme.bodySize
        selectByMouse: true
        Accessible.name: control.name
        Accessible.description: enabled ? "" : qsTr("unavailable")
        Accessible.readOnly: control.readOnly
        Accessible.onPressAction: {
            if (!enabled)
                return;
            forceActiveFocus(Qt.OtherFocusReason);
            control.pressed();
        }
        onTextChanged: {
            control.edited(text);
            control.showBeginning();
        }
        onActiveFocusChanged: control.showBeginning()
        onFontChanged: control.showBeginning()
        onWidthChanged: control.showBeginning()
        onAccepted: control.accepted()
        onPressed: control.pressed()

        background: Rectangle {
            radius: Theme.fieldRadius
            color: control.fill
            border.width: 1
            border.color: Theme.highContrast ? Theme.line : control.borderColor

            FocusRing {
                radius: Theme.fieldRadius + 3
                visible: input.activeFocus
            }
        }
    }

    /// Selects the characters between two positions.
    function select(from: int, to: int) {
        input.select(from, to);
    }

    /// Where nobody is typing, a long text shows its beginning.
    function showBeginning() {
        if (!input.activeFocus || readOnly)
            input.ensureVisible(0);
    }
}
