// SPDX-License-Identifier: MIT
// A choice of one among a few titles next to each other; in two columns where one line is too narrow. The
// arrow keys move the choice. A choice by the user sends `activated`, and the owner then sets `currentIndex`.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: control

    /// Texts.
    required property var titles
    property int currentIndex: 0

    signal activated(int index)

    readonly property var textWidths: titles.map(title => Math.ceil(metrics.advanceWidth(title)))
    readonly property real textsWidth: textWidths.reduce((sum, width) => sum + width, 0)
    readonly property int leastPadding: 2 * 6
    readonly property bool isOneLine: implicitWidth <= width
    readonly property int columns: isOneLine ? titles.length : Math.min(2, titles.length)
    readonly property real segmentHeight: Math.max(Theme.touchTarget, Math.ceil(metrics.height) + Theme.unit)

    implicitWidth: textsWidth + leastPadding * titles.length
    implicitHeight: Math.ceil(titles.length / columns) * segmentHeight

    FontMetrics {
        id: metrics

        font.pixelSize: Theme.smallSize
    }

    Grid {
        anchors.fill: parent
        columns: control.columns

        Repeater {
            id: segments

            model: control.titles

            RadioButton {
                id: segment

                required property int index
                required property string modelData

                width: control.widthOf(index)
                height: control.segmentHeight
                z: activeFocus ? 1 : 0
                padding: 0
                leftPadding: 4
                rightPadding: 4
                indicator: null
                text: modelData
                font.pixelSize: Theme.smallSize
                checked: index === control.currentIndex
                focus: checked
                focusPolicy: checked ? Qt.StrongFocus : Qt.ClickFocus

                Accessible.name: text
                Accessible.onPressAction: if (enabled) control.choose(index)
                Accessible.onToggleAction: if (enabled) control.choose(index)
                onClicked: control.choose(index)
                Keys.onLeftPressed: control.move(index - 1)
                Keys.onRightPressed: control.move(index + 1)
                Keys.onUpPressed: event => event.accepted = control.move(index - control.columns)
                Keys.onDownPressed: event => event.accepted = control.move(index + control.columns)

                contentItem: Text {
                    text: segment.text
                    font: segment.font
                    color: segment.checked ? Theme.tintInk : Theme.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    // Shrinks where not even two columns are wide enough.
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 8
                }
                background: Rectangle {
                    color: segment.checked ? Theme.tint : Qt.tint(Theme.surface, segment.down ? "#30808080" : "transparent")
                    border.width: 1
                    border.color: Theme.mutedText

                    FocusRing {
                        radius: 3
                        visible: segment.visualFocus || segment.activeFocus && Theme.isWithKeys
                    }
                }
            }
        }
    }

    /// In one line every title gets the same room around it. Whole pixels, or an edge is lost now and then.
    function widthOf(index: int): real {
        if (!isOneLine)
            return Math.floor(width / columns);
        const room = Math.floor((width - textsWidth) / titles.length);
        const isLast = index === titles.length - 1;
        return textWidths[index] + (isLast ? Math.floor(width - textsWidth) - index * room : room);
    }

    function choose(index: int) {
        if (index !== currentIndex)
            activated(index);
    }

    /// Chooses the title at an index and gives it the keyboard; false if there is none.
    function move(index: int): bool {
        const segment = segments.itemAt(index) as RadioButton;
        if (!segment)
            return false;
        segment.forceActiveFocus(Qt.TabFocusReason);
        choose(index);
        return true;
    }
}
