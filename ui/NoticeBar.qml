// SPDX-License-Identifier: MIT
// A message at the bottom of the window that keeps nobody from working on. It is there while its text is not
// empty: until it is answered or, where it is said in passing, for some seconds, in which nobody is about to
// answer it.
import QtQuick
import GiggleArchives

Rectangle {
    id: bar

    property string text
    /// What can be done about it, if anything, besides dismissing it.
    property string actionText
    /// A longer text scrolls, by keys while the keyboard is on a button.
    property real maximumHeight: 200
    /// It goes by itself, and `dismissed` tells when.
    property bool isPassing: false
    /// Something lies over the window: the time stands still.
    property bool isCovered: false
    /// The keyboard is on its button.
    readonly property bool hasFocus: action.activeFocus

    /// The buttons then stand below the text.
    readonly property bool isNarrow: width - buttons.width < 10 * Theme.smallSize + 4 * Theme.unit

    signal acted
    signal dismissed

    visible: text.length > 0
    implicitHeight: Math.max(scroller.y + scroller.height, buttons.y + buttons.height) + Theme.unit
    color: Theme.surface
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
    Keys.onEscapePressed: event => {
        event.accepted = isPassing;
        if (isPassing)
            dismissed();
    }

    Timer {
        interval: bar.actionText.length > 0 ? 8000 : 4000
        running: bar.isPassing && bar.visible && !bar.isCovered && !bar.hasFocus && !hover.hovered
        onTriggered: bar.dismissed()
    }
    // A finger leaves no pointer behind.
    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    ScrollArea {
        id: scroller

        x: 2 * Theme.unit
        y: Theme.unit + (bar.isNarrow ? 0 : Math.max(0, (buttons.height - height) / 2))
        width: (bar.isNarrow ? parent.width - Theme.unit : buttons.x) - x - Theme.unit
        height: Math.min(label.implicitHeight, bar.maximumHeight)
        contentHeight: label.implicitHeight
        interactive: overflows
        alwaysShowsBar: label.implicitHeight > bar.maximumHeight // not while it is being laid out

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
    Row {
        id: buttons

        x: parent.width - width - Theme.unit
        y: bar.isNarrow ? scroller.y + scroller.height + Theme.unit : Theme.unit
        spacing: Theme.unit
        Keys.onPressed: event => event.accepted = scroller.scrollBy(event.key)

        AppButton {
            id: action

            visible: bar.actionText.length > 0
            text: bar.actionText
            onClicked: bar.acted()
        }
        AppButton {
            visible: !bar.isPassing
            text: qsTr("Dismiss")
            onClicked: bar.dismissed()
        }
    }
}
