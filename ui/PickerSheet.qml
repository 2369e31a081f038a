// SPDX-License-Identifier: MIT
// The wheel of names at the bottom of a page, shown for one field at a time. The field keeps the keyboard. The
// name in the middle is the field's when it is marked; turning the wheel or pressing a name picks it. "Done" puts
// the sheet away.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

Rectangle {
    id: sheet

    /// The field that is being filled in, or none, and the names for it: texts.
    property FormField field: null
    property var choices: []
    /// Where the rows do not all look the same.
    property PickerLooks looks: null
    readonly property int rowHeight: Math.max(Theme.touchTarget, Theme.bodySize + 2 * Theme.unit)
    property real maximumHeight: 300

    /// A name was picked for the field.
    signal picked(int row)

    visible: field !== null
    height: visible ? Math.min(implicitHeight, maximumHeight) : 0
    implicitHeight: bar.height + 5 * rowHeight
    color: Theme.surface

    // Presses beside the names must not reach the page below.
    MouseArea {
        anchors.fill: parent
    }
    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    Item {
        id: bar

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.readableWidth + 2 * Theme.unit)
        height: done.height + Theme.unit

        Text {
            anchors.left: parent.left
            anchors.right: done.left
            anchors.margins: 2 * Theme.unit
            anchors.verticalCenter: parent.verticalCenter
            text: sheet.field?.name ?? ""
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.bodySize
            elide: Text.ElideRight
        }
        AppButton {
            id: done

            anchors.right: parent.right
            anchors.rightMargin: Theme.unit
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Done")
            isProminent: true
            focusPolicy: Qt.NoFocus // the field keeps it; Enter and Escape do the same
            onClicked: sheet.dismiss()
        }
    }
    Rectangle {
        id: frame

        anchors.centerIn: wheel
        z: 1 // rows may have a ground
        width: Math.min(wheel.width - 2 * Theme.unit, Theme.readableWidth / 2 * Theme.textScale)
        height: sheet.rowHeight
        radius: Theme.fieldRadius
        color: "transparent"
        border.width: sheet.looks ? 3 : 1 // rows of their own look have grounds of all colours
        border.color: sheet.looks ? Theme.tint : Theme.mutedText
        visible: wheel.count > 0
    }
    ListView {
        id: wheel

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        model: sheet.choices
        snapMode: ListView.SnapToItem
        boundsBehavior: Theme.reducesMotion ? Flickable.StopAtBounds : Flickable.DragAndOvershootBounds
        highlightRangeMode: ListView.StrictlyEnforceRange
        preferredHighlightBegin: (height - sheet.rowHeight) / 2
        preferredHighlightEnd: preferredHighlightBegin + sheet.rowHeight
        highlightMoveDuration: 0
        cacheBuffer: count > 200 ? 320 : count * sheet.rowHeight // a screen reader finds only rows that are made
        Accessible.role: Accessible.List
        Accessible.name: sheet.field ? qsTr("%1 choices").arg(sheet.field.name) : ""
        onMovementEnded: sheet.picked(currentIndex)

        /// Turns to the field's name, where it is one of the choices.
        function showChoice() {
            const chosen = sheet.pickedRow();
            if (chosen >= 0)
                currentIndex = chosen;
        }

        delegate: Text {
            id: choice

            required property int index
            required property string modelData
            readonly property bool isPicked: modelData === (sheet.field?.text ?? "")
            readonly property var look: sheet.looks ? sheet.looks.lookOf(index) : null

            width: wheel.width
            height: sheet.rowHeight
            text: modelData.slice(0, 500) // more never fits, and takes long to lay out
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            leftPadding: 3 * Theme.unit
            rightPadding: 3 * Theme.unit
            elide: Text.ElideRight
            wrapMode: look ? Text.NoWrap : Text.Wrap
            fontSizeMode: look ? Text.FixedSize : Text.Fit
            minimumPixelSize: Theme.smallSize
            color: look ? look.ink : isPicked ? Theme.accentText : Theme.text
            opacity: look || Theme.highContrast ? 1 : 1 - Math.min(0.25, Math.abs(index - wheel.currentIndex) * 0.15)
            font.family: look ? look.font.family : Qt.application.font.family
            font.bold: !look
            font.pixelSize: look ? Theme.jokeSize(look.font.pixelSize) : Theme.bodySize
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData
            Accessible.selectable: true
            Accessible.selected: isPicked
            Accessible.onPressAction: sheet.pick(index)

            Rectangle {
                anchors.centerIn: parent
                width: frame.width
                height: parent.height
                radius: frame.radius
                z: -1
                visible: choice.look !== null
                color: choice.look?.ground ?? "transparent"
            }
            MouseArea {
                anchors.fill: parent
                onClicked: sheet.pick(choice.index)
            }
        }
    }
    Text {
        anchors.fill: wheel
        anchors.margins: 2 * Theme.unit
        visible: wheel.count === 0
        text: qsTr("There are no names to pick from yet. Type one.")
        color: Theme.mutedText
        font.pixelSize: Theme.bodySize
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    /// The row that holds the field's name, or -1. Names may stand there more than once: the row in the middle
    /// then counts.
    function pickedRow(): int {
        const name = field?.text ?? "";
        return choices[wheel.currentIndex] === name ? wheel.currentIndex : choices.indexOf(name);
    }

    /// Picks the name so many rows further; without a name in the field the first one.
    function pickNext(rows: int) {
        const current = pickedRow();
        const next = current < 0 ? 0 : current + rows;
        if (next >= 0 && next < choices.length)
            pick(next);
    }

    function pick(row: int) {
        wheel.currentIndex = row;
        picked(row);
    }

    /// Picks the first name that begins with the letters typed one soon after the other.
    function pickBeginningWith(letter: string) {
        typing.letters = (typing.running ? typing.letters : "") + letter.toLowerCase();
        typing.restart();
        const row = choices.findIndex(name => name.toLowerCase().startsWith(typing.letters));
        if (row >= 0)
            pick(row);
    }

    Timer {
        id: typing

        property string letters

        interval: 1000
    }

    /// Shows the names for a field, with the field's own in the middle.
    function show(newField: FormField, names: var, newLooks: PickerLooks) {
        field = newField;
        looks = newLooks;
        choices = names;
        wheel.showChoice();
    }

    /// Puts the sheet away. A wheel that still turns picks the name in the middle.
    function dismiss() {
        const turning = wheel.moving;
        wheel.cancelFlick();
        if (turning && field)
            picked(wheel.currentIndex);
        field = null;
    }

    Connections {
        target: sheet.field

        function onTextChanged() {
            wheel.showChoice();
        }
    }
}
