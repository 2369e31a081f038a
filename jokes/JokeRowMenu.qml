// SPDX-License-Identifier: MIT
// What can be done with one row of a list of jokes. `copyChosen` says with which row.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Menu {
    id: menu

    /// The page that it belongs to, and is closed with.
    required property AppPage owner
    property int row: -1

    signal copyChosen(int row)

    // The press that closes it does nothing else, and the page's keys wait.
    modal: true
    dim: false
    margins: Theme.unit
    padding: Theme.borderWidth

    onOpened: currentIndex = 0 // for a keyboard

    // The popup itself cannot have a name.
    Component.onCompleted: contentItem.parent.Accessible.name = qsTr("Joke")

    MenuItem {
        id: copy

        text: qsTr("Copy")
        implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + 2 * Theme.unit)
        leftPadding: 2 * Theme.unit
        rightPadding: 2 * Theme.unit
        Accessible.name: text
        Accessible.onPressAction: if (enabled) clicked()
        onTriggered: menu.copyChosen(menu.row)

        contentItem: Text {
            text: copy.text
            color: Theme.text
            font.pixelSize: Theme.bodySize
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: Theme.fieldRadius
            color: copy.down || copy.highlighted ? Theme.background : "transparent"

            FocusRing {
                anchors.margins: 0
                radius: parent.radius
                visible: copy.highlighted && Theme.isWithKeys
            }
        }
    }

    background: Rectangle {
        implicitWidth: 160 * Theme.textScale
        radius: Theme.radius
        color: Theme.surface
        border.width: 1
        border.color: Theme.line
    }

    Connections {
        target: menu.owner

        function onIsActiveChanged() {
            menu.close();
        }
    }

    function openFor(item: SwipeRow, x: real, y: real) {
        row = item.index;
        popup(item, x, y);
    }
}
