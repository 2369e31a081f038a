// SPDX-License-Identifier: MIT
// Follows `sheet`: what can be done with a text or a file, at the bottom of the window. Arrows move between the
// rows; Escape and a press beside the sheet put it away.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

AppDialog {
    id: dialog

    required property WindowShareSheet sheet
    readonly property bool isWanted: sheet.isShown

    onIsWantedChanged: isWanted ? open() : close()
    onOpened: (rows.itemAt(0) as AppButton)?.forceActiveFocus(Qt.OtherFocusReason)
    onAboutToHide: sheet.cancel()

    title: qsTr("Share")
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - Theme.unit : 0
    width: parent ? Math.min(parent.width - 2 * Theme.unit, 400 * Theme.textScale) : 0
    height: parent ? Math.min(implicitHeight, parent.height - 2 * Theme.unit) : 0
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutside
    contentHeight: list.implicitHeight + cancelButton.height + Theme.unit

    Flickable {
        id: scroller

        // As wide as the rows with their focus rings.
        x: -Theme.unit / 2
        width: dialog.availableWidth + Theme.unit
        height: dialog.availableHeight - cancelButton.height - Theme.unit
        contentHeight: list.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        /// Scrolls a row into sight.
        function show(top: real, rowHeight: real) {
            const least = Math.min(top + rowHeight + Theme.unit, contentHeight) - height;
            contentY = Math.max(0, Math.min(top, Math.max(contentY, least)));
        }

        Column {
            id: list

            x: Theme.unit / 2
            width: dialog.availableWidth
            spacing: Theme.unit

            DialogTitle {
                width: list.width
                bottomPadding: Theme.unit
                text: dialog.title
            }
            Repeater {
                id: rows

                model: dialog.sheet.choices

                ShareRow {
                    required property int index
                    required property string modelData

                    width: list.width
                    text: modelData
                    iconName: dialog.sheet.icons[index] ?? ""
                    alwaysShowsFocus: true
                    onClicked: dialog.sheet.choose(index)
                    onActiveFocusChanged: if (activeFocus)
                        scroller.show(y, height)
                    Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                    Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                }
            }
        }
    }
    AppButton {
        id: cancelButton

        y: dialog.availableHeight - height
        width: dialog.availableWidth
        text: qsTr("Cancel")
        onClicked: dialog.sheet.cancel()
        Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    }
}
