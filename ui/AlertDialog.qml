// SPDX-License-Identifier: MIT
// Follows `alert`: shows its title, message and buttons while it is shown. A press on a button sends
// `answered` with its position; Escape does so where there is only one. What was shown stays readable while
// the dialog fades out.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Dialog {
    id: dialog

    required property alertContent alert
    property string message
    property list<string> actions

    signal answered(int index)

    onAlertChanged: follow()

    anchors.centerIn: parent
    width: parent ? Math.min(parent.width - 2 * Theme.unit, 400) : 0
    height: parent ? Math.min(implicitHeight, parent.height - 2 * Theme.unit) : 0
    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose
    padding: 2 * Theme.unit

    Component.onCompleted: {
        contentItem.parent.Accessible.name = Qt.binding(() => title);
        follow();
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.animationTime
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            from: 1
            to: 0
            duration: Theme.animationTime
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.surface
        border.width: Theme.borderWidth
        border.color: Theme.line
    }
    // Title and buttons lie in the content: a header and a footer of their own would take part in the dialog's
    // height while they are still being laid out.
    header: null
    contentHeight: column.implicitHeight

    Flickable {
        anchors.fill: parent
        contentHeight: column.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        Column {
            id: column

            width: dialog.availableWidth
            spacing: 2 * Theme.unit

            Label {
                width: column.width
                text: dialog.title
                textFormat: Text.PlainText
                color: Theme.text
                font.pixelSize: Theme.titleSize
                font.bold: true
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            Label {
                width: column.width
                text: dialog.message
                textFormat: Text.PlainText
                color: Theme.text
                font.pixelSize: Theme.bodySize
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            Repeater {
                model: dialog.actions

                AppButton {
                    required property int index
                    required property string modelData

                    width: column.width
                    text: modelData
                    fill: Theme.yellow
                    ink: Theme.brightInk
                    focus: index === 0
                    onClicked: dialog.answered(index)
                    Keys.onEscapePressed: if (dialog.actions.length === 1)
                        dialog.answered(0)
                }
            }
        }
    }

    function follow() {
        if (!alert.shown) {
            close();
            return;
        }
        title = alert.title;
        message = alert.message;
        actions = alert.actions;
        open();
    }
}
