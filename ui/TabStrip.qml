// SPDX-License-Identifier: MIT
// The tabs below a page, side by side. The arrow keys move the choice. A choice by the user sends `activated`,
// and the owner then sets `currentIndex`.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: strip

    /// Texts.
    required property var titles
    property int currentIndex: 0

    signal activated(int index)

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(metrics.height) + 2 * Theme.unit)
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Tabs")

    FontMetrics {
        id: metrics

        font.pixelSize: Theme.bodySize
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.surface

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.mutedText
        }
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.readableWidth)
        height: parent.height

        Repeater {
            id: tabs

            model: strip.titles

            TabButton {
                id: tab

                required property int index
                required property string modelData

                width: parent ? parent.width / tabs.count : 0
                height: strip.height
                padding: Theme.unit / 2
                text: modelData
                font.pixelSize: Theme.bodySize
                checked: index === strip.currentIndex
                focus: checked
                focusPolicy: checked ? Qt.StrongFocus : Qt.ClickFocus

                Accessible.name: text
                Accessible.selected: checked
                Accessible.onPressAction: if (enabled) strip.choose(index)
                onClicked: strip.choose(index)
                Keys.onLeftPressed: strip.move(index - 1)
                Keys.onRightPressed: strip.move(index + 1)

                contentItem: Text {
                    text: tab.text
                    font.pixelSize: tab.font.pixelSize
                    font.bold: tab.checked
                    color: tab.checked ? Theme.accentText : Theme.mutedText
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 8
                }
                background: Rectangle {
                    color: tab.down ? "#30808080" : "transparent"

                    Rectangle {
                        width: parent.width
                        height: 3
                        visible: tab.checked
                        color: Theme.accentText
                    }
                    FocusRing {
                        anchors.margins: 3
                        radius: 3
                        visible: tab.visualFocus || tab.activeFocus && Theme.isWithKeys
                    }
                }
            }
        }
    }

    function choose(index: int) {
        if (index !== currentIndex)
            activated(index);
    }

    /// Chooses the tab at an index, if there is one, and gives it the keyboard.
    function move(index: int) {
        const tab = tabs.itemAt(index) as TabButton;
        if (!tab)
            return;
        tab.forceActiveFocus(Qt.TabFocusReason);
        choose(index);
    }
}
