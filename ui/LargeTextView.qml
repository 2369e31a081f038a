// SPDX-License-Identifier: MIT
// A text of any size to be read, in a frame, with a button that copies all of it. Only the lines in sight are
// there. Arrows, Home, End and the Page keys scroll; Ctrl+C copies.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: control

    required property string name
    required property LargeTextModel content
    property color borderColor: Theme.line
    property int textSize: Theme.bodySize
    property int firstLineSize: textSize
    property bool isBold: false
    /// A line that is not bold all the same.
    property string plainLine
    property int horizontalAlignment: Text.AlignLeft
    /// High enough for some lines.
    readonly property real leastHeight: frame.y + 6 * Theme.bodySize + 4 * Theme.unit

    implicitWidth: 200
    implicitHeight: leastHeight

    FieldLabel {
        anchors.left: parent.left
        anchors.right: copyButton.left
        anchors.rightMargin: Theme.unit
        anchors.verticalCenter: copyButton.verticalCenter
        text: control.name
    }
    AppButton {
        id: copyButton

        anchors.right: parent.right
        text: qsTr("Copy")
        enabled: !control.content.isEmpty
        onClicked: control.content.copy()
    }
    Rectangle {
        id: frame

        y: copyButton.height + Theme.unit / 2
        width: parent.width
        height: parent.height - y
        radius: Theme.fieldRadius
        color: Theme.surface
        border.width: 1
        border.color: control.borderColor
    }
    ListView {
        id: lines

        anchors.fill: frame
        anchors.margins: 1
        focus: true
        clip: true
        topMargin: Theme.unit
        bottomMargin: Theme.unit
        reuseItems: true
        cacheBuffer: 0 // lines that are made ahead of time outlive a change of the text, to the view's surprise
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        highlightFollowsCurrentItem: false // the current line follows the view
        model: control.content
        Accessible.role: Accessible.List
        Accessible.name: control.name
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        delegate: Text {
            required property string line
            required property int index
            property bool pooled: false

            x: Theme.unit
            width: lines.width - 2 * Theme.unit
            visible: !pooled
            text: line
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: index === 0 ? control.firstLineSize : control.textSize
            font.bold: control.isBold && line !== control.plainLine
            horizontalAlignment: control.horizontalAlignment
            Accessible.role: Accessible.ListItem
            Accessible.name: line.trim().length > 0 ? line : qsTr("Empty line")
            Accessible.selected: ListView.isCurrentItem
            ListView.onPooled: pooled = true
            ListView.onReused: pooled = false
        }

        TapHandler {
            onTapped: lines.forceActiveFocus(Qt.MouseFocusReason)
        }
        Keys.onPressed: event => {
            if (event.matches(StandardKey.Copy)) {
                control.content.copy();
                event.accepted = true;
            } else {
                event.accepted = control.scrollBy(event.key);
            }
        }
    }
    FocusRing {
        anchors.fill: frame
        radius: Theme.fieldRadius + 3
        visible: lines.activeFocus
    }

    /// Scrolls as a key says, and moves the current line along, which a screen reader reads; false for a key that
    /// does neither.
    function scrollBy(key: int): bool {
        const line = Math.min(lines.currentItem?.height ?? Infinity, 2 * Theme.bodySize); // none is passed over
        const page = lines.height - Theme.bodySize;
        switch (key) {
        case Qt.Key_Home:
            lines.positionViewAtBeginning();
            lines.currentIndex = 0;
            return true;
        case Qt.Key_End:
            lines.positionViewAtEnd();
            lines.currentIndex = lines.count - 1;
            return true;
        case Qt.Key_Up:
            return move(-line, lines.currentIndex - 1);
        case Qt.Key_Down:
            return move(line, lines.currentIndex + 1);
        case Qt.Key_PageUp:
            return move(-page, 0);
        case Qt.Key_PageDown:
            return move(page, lines.atYEnd ? lines.count - 1 : 0);
        default:
            return false;
        }
    }

    /// Scrolls, and makes a line the current one, or else the nearest to it that is in sight.
    function move(by: real, row: int): bool {
        lines.contentY += by;
        lines.returnToBounds();
        const end = lines.originY + lines.contentHeight;
        const first = rowAt(Math.max(lines.originY, lines.contentY));
        const last = rowAt(Math.min(end, lines.contentY + lines.height) - 1);
        lines.currentIndex = Math.max(first, Math.min(last, row));
        return true;
    }

    function rowAt(y: real): int {
        return lines.indexAt(lines.width / 2, y);
    }
}
