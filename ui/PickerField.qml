// SPDX-License-Identifier: MIT
// A field whose names can also be picked: a press on it, or an arrow key, shows the page's picker, which is told
// by `picker`. What is picked comes as `picked` with the row. Anything may be typed all the same, unless the field
// is read-only: letters then pick the first name that begins with them.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

FormField {
    id: control

    required property PickerSheet picker
    /// Texts.
    required property var choices
    /// Where the names do not all look the same.
    property PickerLooks looks: null
    readonly property bool isPicking: picker.field === control

    signal picked(int row)

    ornamentWidth: Theme.iconSize
    onPressed: open()
    // Nobody but a program that reads the screen can put a text into a read-only field.
    onEdited: text => {
        if (readOnly && text !== control.text && choices.indexOf(text) >= 0)
            picked(choices.indexOf(text));
    }
    onAccepted: picker.dismiss()
    onActiveFocusChanged: if (!activeFocus && isPicking)
        picker.dismiss()

    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)
    Keys.onPressed: event => {
        if (!readOnly || event.text.length === 0 || event.modifiers & (Qt.ControlModifier | Qt.AltModifier))
            return;
        event.accepted = event.text >= " ";
        if (event.accepted) {
            open();
            picker.pickBeginningWith(event.text);
        }
    }
    Keys.onEscapePressed: event => {
        event.accepted = isPicking;
        if (isPicking)
            picker.field = null;
    }

    Image {
        x: control.inputArea.x + control.inputArea.width - width - Theme.unit
        y: control.inputArea.y + (control.inputArea.height - height) / 2
        sourceSize.width: Theme.iconSize
        sourceSize.height: Theme.iconSize
        source: Theme.icon("unfold", Theme.isDark(control.fill))
        opacity: 0.7
    }

    Connections {
        target: control.picker

        function onPicked(row) {
            if (control.isPicking)
                control.picked(row);
        }
    }

    /// The first arrow key shows the picker, the next ones pick.
    function step(by: int) {
        if (isPicking)
            picker.pickNext(by);
        else
            open();
    }

    function open() {
        picker.show(control, choices, looks);
    }
}
