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
    property bool isBold: false
    property int textSize: Theme.bodySize
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
        model: control.content
        Accessible.role: Accessible.List
        Accessible.name: control.name
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        delegate: Text {
            required property string line
            property bool pooled: false

            x: Theme.unit
            width: lines.width - 2 * Theme.unit
            visible: !pooled
            text: line
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: control.textSize
            font.bold: control.isBold
            horizontalAlignment: control.horizontalAlignment
            Accessible.role: Accessible.ListItem
            Accessible.name: line.trim().length > 0 ? line : qsTr("Empty line")
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

    /// Scrolls as a key says; false for a key that does not.
    function scrollBy(key: int): bool {
        const steps = {
            [Qt.Key_Up]: -2 * Theme.bodySize,
            [Qt.Key_Down]: 2 * Theme.bodySize,
            [Qt.Key_PageUp]: Theme.bodySize - lines.height,
            [Qt.Key_PageDown]: lines.height - Theme.bodySize
        };
        if (key === Qt.Key_Home)
            lines.positionViewAtBeginning();
        else if (key === Qt.Key_End)
            lines.positionViewAtEnd();
        else if (key in steps) {
            lines.contentY += steps[key];
            lines.returnToBounds();
        } else
            return false;
        return true;
    }
}
