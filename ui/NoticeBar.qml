// SPDX-License-Identifier: MIT
// A message at the bottom of the window that stays until it is dismissed and keeps nobody from working on. It
// is there while its text is not empty.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Rectangle {
    id: bar

    property string text
    /// A longer text scrolls.
    property real maximumHeight: 200

    /// The button then stands below the text.
    readonly property bool isNarrow: width < 24 * Theme.smallSize

    signal dismissed

    visible: text.length > 0
    implicitHeight: Math.max(scroller.y + scroller.height, dismiss.y + dismiss.height) + Theme.unit
    color: Theme.surface
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    Flickable {
        id: scroller

        x: 2 * Theme.unit
        y: Theme.unit
        width: (bar.isNarrow ? parent.width - Theme.unit : dismiss.x) - x - Theme.unit
        height: Math.min(label.implicitHeight, bar.maximumHeight)
        contentHeight: label.implicitHeight
        clip: true
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        Text {
            id: label

            width: scroller.width
            text: bar.text
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.smallSize
            wrapMode: Text.Wrap
        }
    }
    AppButton {
        id: dismiss

        x: parent.width - width - Theme.unit
        y: bar.isNarrow ? scroller.y + scroller.height + Theme.unit : Theme.unit
        text: qsTr("Dismiss")
        onClicked: bar.dismissed()
    }
}
