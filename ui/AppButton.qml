// SPDX-License-Identifier: MIT
// A push button in the application's look. Space, Enter, a tap and a screen reader's press send `clicked`;
// while it is disabled nothing does. Its text is its accessible name.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Button {
    id: control

    /// What the page is mostly there for.
    property bool isProminent: false
    property color fill: isProminent ? Theme.yellow : Theme.surface
    property color ink: isProminent ? Theme.brightInk : Theme.text
    property int borderWidth: Theme.borderWidth
    /// Whether the keyboard is shown to be here however it came.
    property bool alwaysShowsFocus: false

    padding: Theme.unit
    leftPadding: 2 * Theme.unit
    rightPadding: 2 * Theme.unit
    implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + 2 * padding)
    font.pixelSize: Theme.bodySize

    Accessible.name: text
    Accessible.description: enabled ? "" : qsTr("unavailable")
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: event => press(event)
    Keys.onEnterPressed: event => press(event)

    contentItem: Text {
        text: control.text
        font: control.font
        color: control.ink
        opacity: control.enabled ? 1 : 0.5
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
    }
    background: Item {
        implicitWidth: Theme.touchTarget

        Rectangle {
            anchors.fill: parent
            radius: Theme.radius
            color: control.down ? Qt.tint(control.fill, "#30808080") : control.enabled ? control.fill : control.faded(control.fill)
            border.width: control.borderWidth
            border.color: Theme.outline
        }
        FocusRing {
            visible: control.visualFocus || control.activeFocus && (control.alwaysShowsFocus || Theme.isWithKeys)
        }
    }

    function faded(fill: color): color {
        return Qt.rgba(fill.r, fill.g, fill.b, fill.a / 2);
    }

    /// A key that is held down counts once.
    function press(event: KeyEvent) {
        if (!event.isAutoRepeat)
            clicked();
    }
}
