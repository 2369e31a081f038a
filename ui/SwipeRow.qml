// SPDX-License-Identifier: MIT
// A row of a TableList: a rounded card that is pressed as a whole, and that uncovers one destructive action
// when it is dragged to the left. What is put into it is drawn on the card; whoever uses it sets the height.
//
// clicked: the row was tapped, or Enter was pressed on it. spacePressed: Space was pressed on it.
// actionTriggered: the uncovered action was pressed, or Delete on the row. menuRequested: the row was held, or
// pressed with the right button, at that place, or the Menu key was pressed on it. copyPressed: Ctrl+C was.
pragma ComponentBehavior: Bound

import QtQuick
import GiggleArchives

Item {
    id: row

    required property int index
    /// All of the row's text, for a screen reader.
    required property string name
    /// Without a text there is nothing to uncover.
    property string actionText
    property color cardColor: Theme.teal
    /// Whether menuRequested and copyPressed are sent at all.
    property bool hasMenu: false
    default property alias content: card.data

    readonly property ListView list: ListView.view as ListView
    readonly property bool isOpen: card.x < 0
    /// Rows that have left the view wait in a pool for their next use, and are not to be found meanwhile.
    property bool pooled: false

    signal clicked
    signal spacePressed
    signal actionTriggered
    signal menuRequested(real x, real y)
    signal copyPressed

    x: list ? (list.width - width) / 2 : 0
    width: list ? Math.min(list.width - 2 * Theme.unit, Theme.readableWidth) : 0
    visible: !pooled

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.focusable: true
    Accessible.selectable: true
    Accessible.selected: ListView.isCurrentItem
    Accessible.onPressAction: {
        if (!enabled)
            return;
        becomeCurrent();
        clicked();
    }
    onActiveFocusChanged: if (activeFocus) becomeCurrent()
    ListView.onIsCurrentItemChanged: if (!ListView.isCurrentItem) close()
    ListView.onPooled: {
        pooled = true;
        close();
    }
    ListView.onReused: {
        // Where the row was deleted it faded out.
        opacity = 1;
        pooled = false;
    }

    AppButton {
        id: action

        anchors.right: parent.right
        height: parent.height
        visible: row.isOpen
        text: row.actionText
        fill: Theme.destructive
        ink: Theme.destructiveInk
        focusPolicy: Qt.NoFocus
        onClicked: {
            // Ctrl+Z in the search field would take back what was typed.
            if (row.list)
                row.list.forceActiveFocus(Qt.MouseFocusReason);
            row.actionTriggered();
        }
    }

    Rectangle {
        id: card

        width: parent.width
        height: parent.height
        radius: Theme.radius
        color: touch.pressed ? Qt.darker(row.cardColor, 1.12) : row.cardColor
        border.width: Theme.borderWidth
        border.color: Theme.buttonBorder

        Behavior on x {
            enabled: !drag.active && !row.pooled

            NumberAnimation {
                duration: Theme.animationTime
                easing.type: Easing.OutCubic
            }
        }

        // A handler would hear of taps on the controls above it as well.
        MouseArea {
            id: touch

            /// The press has opened the menu, and neither drags the row nor scrolls the list any more.
            property bool isHeld: false

            anchors.fill: parent
            acceptedButtons: row.hasMenu ? Qt.LeftButton | Qt.RightButton : Qt.LeftButton
            preventStealing: isHeld
            onPressed: isHeld = false
            onReleased: isHeld = false
            onCanceled: isHeld = false
            onPressAndHold: event => {
                event.accepted = row.hasMenu && !row.isOpen; // else it is a click after all
                if (event.accepted) {
                    isHeld = true;
                    row.openMenu(event.x, event.y);
                }
            }
            onClicked: event => {
                if (event.button === Qt.RightButton) {
                    row.openMenu(event.x, event.y);
                    return;
                }
                const wasOpen = row.isOpen || row.isAnotherOpen();
                row.becomeCurrent();
                if (row.list)
                    row.list.forceActiveFocus(Qt.MouseFocusReason);
                if (wasOpen)
                    row.close();
                else
                    row.clicked();
            }
        }
    }

    DragHandler {
        id: drag

        target: card
        enabled: row.actionText.length > 0 && !touch.isHeld
        xAxis.minimum: -action.width
        xAxis.maximum: 0
        yAxis.enabled: false
        onActiveChanged: {
            if (active)
                row.becomeCurrent();
            else
                card.x = card.x < -action.width / 2 ? -action.width : 0;
        }
    }

    /// Covers the action again.
    function close() {
        card.x = 0;
    }

    function openMenu(x: real, y: real) {
        close();
        becomeCurrent();
        if (list)
            list.forceActiveFocus(Qt.MouseFocusReason);
        menuRequested(x, y);
    }

    function becomeCurrent() {
        if (list)
            list.currentIndex = index;
    }

    /// Only the current row can be open.
    function isAnotherOpen(): bool {
        const current = list ? list.currentItem as SwipeRow : null;
        return current !== null && current !== row && current.isOpen;
    }
}
