// SPDX-License-Identifier: MIT
// Follows `alert`: shows its title, message and buttons while it is shown. A press on a button sends
// `answered` with its position; so does Escape for the one that leaves things as they are. What was shown stays
// readable while the dialog fades out.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

AppDialog {
    id: dialog

    required property alertContent alert
    property string message
    property list<string> actions
    property int cancelAction: -1

    signal answered(int index)

    onAlertChanged: follow()

    anchors.centerIn: parent
    width: parent ? Math.min(parent.width - 2 * Theme.unit, 400 * Theme.textScale) : 0
    height: parent ? Math.min(implicitHeight, parent.height - 2 * Theme.unit) : 0
    contentHeight: texts.implicitHeight + buttons.height + 2 * Theme.unit
    padding: (Theme.textScale > 1.5 ? 1 : 2) * Theme.unit // long words need the room

    Component.onCompleted: {
        // Read with the title.
        contentItem.parent.Accessible.description = Qt.binding(() => message);
        follow();
    }

    ScrollArea {
        id: scroller

        width: dialog.availableWidth
        height: dialog.availableHeight - buttons.height - 2 * Theme.unit
        contentHeight: texts.implicitHeight
        alwaysShowsBar: dialog.opened // not while it is being laid out

        Column {
            id: texts

            width: dialog.availableWidth
            spacing: Theme.unit

            DialogTitle {
                width: texts.width
                text: dialog.title
                wrapMode: Text.Wrap
            }
            Label {
                width: texts.width
                text: dialog.message
                textFormat: Text.PlainText
                color: Theme.text
                font.pixelSize: Theme.bodySize
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
    }
    Column {
        id: buttons

        y: dialog.availableHeight - height
        width: dialog.availableWidth
        spacing: Theme.unit
        Keys.onPressed: event => event.accepted = scroller.scrollBy(event.key)

        Repeater {
            id: buttonList

            model: dialog.actions

            AppButton {
                required property int index
                required property string modelData

                width: buttons.width
                text: modelData
                isProminent: true
                focus: index === Math.max(0, dialog.cancelAction)
                // Where there is a choice it has to be seen which button has the keyboard.
                alwaysShowsFocus: dialog.actions.length > 1
                onClicked: dialog.answered(index)
                Keys.onEscapePressed: if (dialog.cancelAction >= 0)
                    dialog.answered(dialog.cancelAction)
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
        cancelAction = alert.cancelAction;
        actions = alert.actions;
        open();
    }
}
