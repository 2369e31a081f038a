// SPDX-License-Identifier: MIT
// A row of a TableList: a rounded card that is pressed as a whole, and that uncovers one destructive action
// when it is dragged to the left. What is put into it is drawn on the card; whoever uses it sets the height.
//
// clicked: the row was tapped, or Enter was pressed on it. spacePressed: Space was pressed on it.
// actionTriggered: the uncovered action was pressed, or Delete on the row.
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
    default property alias content: card.data

    readonly property ListView list: ListView.view as ListView
    readonly property bool isOpen: card.x < 0
    /// Rows that have left the view wait in a pool for their next use, and are not to be found meanwhile.
    property bool pooled: false

    signal clicked
    signal spacePressed
    signal actionTriggered

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
        onClicked: row.actionTriggered()
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

            anchors.fill: parent
            onClicked: {
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
        enabled: row.actionText.length > 0
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
