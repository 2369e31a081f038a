// SPDX-License-Identifier: MIT
// What dialogs have in common: a bordered box that fades in and out over the window, and that a screen reader calls
// by its title. It shows none itself: that is what DialogTitle is for.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Dialog {
    id: dialog

    property color fillColor: Theme.surface

    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose
    padding: 2 * Theme.unit
    // Title and buttons lie in the content: a header and a footer of their own would take part in the dialog's
    // height while they are still being laid out.
    header: null

    // Read when the keyboard comes into the dialog.
    Component.onCompleted: contentItem.parent.Accessible.name = Qt.binding(() => title)

    enter: Fade {
        to: 1
    }
    exit: Fade {
        from: 1
    }
    background: Rectangle {
        radius: Theme.radius
        color: dialog.fillColor
        border.width: Theme.borderWidth
        border.color: Theme.line
    }
}
