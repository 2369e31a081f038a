// SPDX-License-Identifier: MIT
// A live search field, named by its hint; `textChanged` tells of every new text. Escape clears it; on
// an empty field Escape goes on to the page.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

TextField {
    id: control

    /// Shown while the field is empty. A placeholder would be read a second time.
    property string hint
    property color borderColor: Theme.line

    implicitHeight: Math.max(Theme.touchTarget, contentHeight + 2 * Theme.unit)
    leftPadding: Theme.iconSize + 2 * Theme.unit
    rightPadding: clearButton.visible ? clearButton.width : Theme.unit
    font.pixelSize: Theme.bodySize
    color: Theme.text
    selectByMouse: true
    inputMethodHints: Qt.ImhNoPredictiveText

    Accessible.name: hint
    Accessible.searchEdit: true
    Keys.onEscapePressed: event => {
        event.accepted = text.length > 0;
        clear();
    }

    background: Rectangle {
        radius: Theme.fieldRadius
        color: Theme.surface
        border.width: Theme.borderWidth
        border.color: Theme.highContrast ? Theme.line : control.borderColor

        Image {
            x: Theme.unit
            anchors.verticalCenter: parent.verticalCenter
            sourceSize.width: Theme.iconSize
            sourceSize.height: Theme.iconSize
            source: Theme.icon("search", Theme.dark)
            opacity: 0.7
        }
        FocusRing {
            radius: Theme.fieldRadius + 3
            visible: control.activeFocus
        }
    }

    Text {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.length === 0 && control.preeditText.length === 0
        text: control.hint
        color: Theme.mutedText
        font: control.font
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 8
        verticalAlignment: Text.AlignVCenter
    }
    AbstractButton {
        id: clearButton

        anchors.right: parent.right
        width: Math.max(Theme.touchTarget, Theme.iconSize + Theme.unit)
        height: parent.height
        visible: control.text.length > 0
        focusPolicy: Qt.NoFocus // Escape does the same
        Accessible.name: qsTr("Clear search")
        Accessible.onPressAction: clicked()
        onClicked: control.clear()

        Image {
            anchors.centerIn: parent
            sourceSize.width: Theme.iconSize
            sourceSize.height: Theme.iconSize
            source: Theme.icon("clear", Theme.dark)
            opacity: clearButton.down ? 0.5 : 0.8
        }
    }
}
