// SPDX-License-Identifier: MIT
// Keeps a list where the user has left it. Its table remembers the place; the list takes it up again when it is
// opened the next time, and when its rows are replaced while another page or a dialog lies over it.
import QtQuick
import GiggleArchives

Item {
    id: keeper

    required property ListView list
    readonly property TableModel table: list.model as TableModel
    /// Until then the list stands where it was made, which is nowhere the user has been.
    property bool isPlaced: false
    property bool isComplete: false
    /// Not while something lies over it.
    readonly property bool isReached: list.enabled

    visible: false
    onIsReachedChanged: if (!isReached)
        keep()
    Component.onCompleted: {
        isComplete = true;
        place();
    }

    Connections {
        target: keeper.list

        function onContentYChanged() {
            if (!settling.running)
                settling.start();
        }
        function onWidthChanged() {
            keeper.place();
        }
        function onHeightChanged() {
            keeper.place();
        }
        function onCountChanged() {
            keeper.place();
        }
    }
    Timer {
        id: settling

        interval: 200
        onTriggered: if (keeper.isReached)
            keeper.keep()
    }

    // The view has to take in the rows first.
    Timer {
        id: restoring

        interval: 0
        onTriggered: keeper.restore()
    }

    function keep() {
        const top = isPlaced && !restoring.running ? firstRowInSight() : -1;
        if (table && top >= 0)
            table.keepPlace(top, list.contentY - list.itemAtIndex(top).y, list.currentIndex);
    }

    /// Once there is something to be placed.
    function place() {
        if (isPlaced || !isComplete || list.count === 0 || list.width <= 0 || list.height <= 0)
            return;
        isPlaced = true;
        restoreSoon();
    }

    function restoreSoon() {
        restoring.restart();
    }

    function restore() {
        const kept = table?.keptPlace();
        if (list.count === 0 || !kept || kept.topRow < 0)
            return;
        moveTo(kept.topRow, kept.offset);
        const next = Math.min(list.count - 1, kept.offset > 0 ? kept.topRow + 1 : kept.topRow);
        const current = isInSight(list.itemAtIndex(kept.currentRow)) ? kept.currentRow : next;
        if (current === list.currentIndex)
            return;
        list.currentIndex = current;
        // The view follows a new current row for as long as it is not moved otherwise.
        moveTo(kept.topRow, kept.offset);
    }

    function moveTo(row: int, offset: real) {
        list.positionViewAtIndex(row, ListView.Beginning);
        const item = list.itemAtIndex(row);
        if (!item)
            return;
        list.contentY = item.y + Math.min(offset, item.height);
        list.returnToBounds();
    }

    function firstRowInSight(): int {
        const step = Math.max(1, list.spacing);
        for (let y = 0; y < list.height; y += step) {
            const row = list.indexAt(list.width / 2, list.contentY + y);
            if (row >= 0)
                return row;
        }
        return -1;
    }

    function isInSight(row: Item): bool {
        return row !== null && row.y + row.height > list.contentY && row.y < list.contentY + list.height;
    }
}
