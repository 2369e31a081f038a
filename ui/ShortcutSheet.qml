// SPDX-License-Identifier: MIT
// The keyboard shortcuts, by place, at the bottom of the window: key caps on the left and what they do on the
// right, or below where there is little room. The usual keys scroll; Escape and a press beside the sheet put it
// away.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

AppDialog {
    id: dialog

    readonly property bool isWide: availableWidth >= 280 * Theme.textScale
    readonly property real keysWidth: isWide ? Math.min(Math.round(0.4 * availableWidth), 168 * Theme.textScale) : list.width

    onOpened: scroller.forceActiveFocus(Qt.OtherFocusReason)

    title: qsTr("Keyboard Shortcuts")
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - Theme.unit : 0
    width: parent ? Math.min(parent.width - 2 * Theme.unit, 520 * Theme.textScale) : 0
    height: parent ? Math.min(implicitHeight, parent.height - 2 * Theme.unit) : 0
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutside
    contentHeight: heading.height + list.height + closeButton.height + 2 * Theme.unit

    Shortcuts {
        id: shortcuts
    }
    DialogTitle {
        id: heading

        width: dialog.availableWidth
        bottomPadding: Theme.unit
        text: dialog.title
        wrapMode: Text.Wrap
    }
    ScrollArea {
        id: scroller

        y: heading.height
        width: dialog.availableWidth
        height: dialog.availableHeight - y - closeButton.height - Theme.unit
        contentHeight: list.height
        activeFocusOnTab: true
        Accessible.role: Accessible.List
        Accessible.name: dialog.title
        Keys.onPressed: event => event.accepted = scrollBy(event.key)

        Column {
            id: list

            x: Theme.unit
            width: scroller.width - 2 * Theme.unit
            spacing: Theme.unit
            topPadding: Theme.unit
            bottomPadding: Theme.unit

            Repeater {
                model: shortcuts.groups

                Column {
                    id: group

                    required property int index
                    required property var modelData

                    width: list.width
                    spacing: Theme.unit

                    Text {
                        width: group.width
                        topPadding: group.index > 0 ? Theme.unit : 0
                        text: group.modelData.title
                        color: Theme.text
                        font.pixelSize: Theme.bodySize
                        font.bold: true
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.Heading
                        Accessible.name: text
                    }
                    Repeater {
                        model: group.modelData.rows

                        ShortcutRow {
                            width: list.width
                        }
                    }
                }
            }
        }
    }
    FocusRing {
        anchors.fill: scroller
        radius: Theme.fieldRadius + 3
        visible: scroller.activeFocus
    }
    AppButton {
        id: closeButton

        y: dialog.availableHeight - height
        width: dialog.availableWidth
        text: qsTr("Close")
        alwaysShowsFocus: true
        onClicked: dialog.close()
    }

    component ShortcutRow: Item {
        id: row

        required property var modelData

        height: Math.max(keys.height, meaning.y + meaning.height)
        Accessible.role: Accessible.ListItem
        Accessible.name: shortcuts.spoken(modelData)

        Flow {
            id: keys

            width: dialog.keysWidth
            spacing: Theme.unit / 2

            Repeater {
                model: row.modelData[0].split(" ")

                Rectangle {
                    required property string modelData

                    width: Math.max(height, cap.implicitWidth + Theme.unit + 2)
                    height: cap.implicitHeight + Theme.unit / 2
                    radius: Theme.fieldRadius
                    color: Theme.background
                    border.width: 1
                    border.color: Theme.mutedText

                    Text {
                        id: cap

                        anchors.centerIn: parent
                        text: parent.modelData.replace(/^Page/, "Page ")
                        textFormat: Text.PlainText
                        color: Theme.text
                        font.pixelSize: Theme.smallSize
                    }
                }
            }
        }
        Text {
            id: meaning

            x: dialog.isWide ? keys.width + Theme.unit : 0
            y: dialog.isWide ? (Theme.unit / 2 + 1) / 2 : keys.height + Theme.unit / 2
            width: row.width - x
            text: row.modelData[1]
            color: Theme.text
            font.pixelSize: Theme.smallSize
            wrapMode: Text.Wrap
        }
    }
}
