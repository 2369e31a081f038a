// SPDX-License-Identifier: MIT
// What stands where an empty list would leave a blank: what is missing, what to do about it, and where there
// is a text for it a button that leads there.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Column {
    id: control

    property alias title: titleLabel.text
    property alias hint: hintLabel.text
    property alias actionText: action.text

    signal actionTriggered

    spacing: Theme.unit

    Label {
        id: titleLabel

        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.titleSize
        font.bold: true
    }
    Label {
        id: hintLabel

        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        color: Theme.mutedText
        font.pixelSize: Theme.bodySize
    }
    Item {
        width: parent.width
        height: action.height + Theme.unit
        visible: action.text.length > 0

        AppButton {
            id: action

            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.unit
            isProminent: true
            onClicked: control.actionTriggered()
        }
    }

    /// Gives the button the keyboard, if there is one.
    function focusAction() {
        if (action.text.length > 0)
            action.forceActiveFocus(Qt.OtherFocusReason);
    }
}
