// SPDX-License-Identifier: MIT
// A field whose names can also be picked: a press on it, or an arrow key, shows the page's picker, which is told
// by `picker`. What is picked comes as `picked` with the row; anything may be typed all the same.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

FormField {
    id: control

    required property PickerSheet picker
    /// Texts.
    required property var choices
    readonly property bool isPicking: picker.field === control

    signal picked(int row)

    ornamentWidth: Theme.iconSize
    onPressed: picker.show(control, choices)
    onAccepted: picker.dismiss()
    onActiveFocusChanged: if (!activeFocus && isPicking)
        picker.dismiss()

    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)
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
        source: Theme.icon("unfold", Theme.dark)
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
        if (!isPicking) {
            picker.show(control, choices);
            return;
        }
        picker.pickNext(by);
    }
}
