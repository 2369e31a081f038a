// SPDX-License-Identifier: MIT
// A table of rows that scrolls. Its delegate is a SwipeRow. Arrows, Home, End and the Page keys move the
// current row; Enter, Space and Delete act on it, the Menu key and Ctrl+C where it has a menu. Rows that the user
// has replaced show from the top, a row that is deleted fades out where it is, and one that comes back is the
// current one; else the list stands where it was left. Without rows it shows the two texts instead, and a button
// where there is a text for it, which sends `emptyActionTriggered`.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

ListView {
    id: list

    /// What the list is called for a screen reader.
    required property string name
    property string emptyTitle
    property string emptyHint
    property string emptyAction

    readonly property SwipeRow currentRow: currentItem as SwipeRow
    /// Whether the user works with keys, and has to see where they act.
    property bool showsFocus: false

    signal emptyActionTriggered

    clip: true
    spacing: Theme.unit / 2
    topMargin: Theme.unit
    bottomMargin: Theme.unit
    reuseItems: true
    cacheBuffer: 0 // rows that are made ahead of time outlive a change of the model, to the view's surprise
    activeFocusOnTab: true
    highlightRangeMode: ListView.ApplyRange
    preferredHighlightBegin: Theme.unit
    preferredHighlightEnd: height - Theme.unit
    highlightMoveDuration: 0
    highlightResizeDuration: 0
    boundsBehavior: Theme.reducesMotion ? Flickable.StopAtBounds : Flickable.DragAndOvershootBounds
    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.animationTime
        }
    }
    removeDisplaced: Move {}
    addDisplaced: Move {}
    add: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.animationTime
        }
    }

    component Move: Transition {
        NumberAnimation {
            property: "y"
            duration: Theme.animationTime
            easing.type: Easing.OutCubic
        }
    }

    Accessible.role: Accessible.List
    Accessible.name: name
    ScrollBar.vertical: ScrollBar {
        Accessible.ignored: true
    }

    // The row that keys act on must not lie behind a bar at the bottom of the window.
    onHeightChanged: resized.restart()
    onMovementStarted: if (currentRow)
        currentRow.close()
    onActiveFocusChanged: showsFocus = activeFocus && Theme.isWithKeys
    // After a reset of an empty table the rows come later.
    onCountChanged: {
        if (count > 0 && currentIndex < 0)
            currentIndex = 0;
        else if (count === 0 && activeFocus)
            empty.focusAction();
    }

    Keys.onReleased: showsFocus = true // of the Tab that led here, too
    Keys.onPressed: event => {
        // Nothing is deleted before the user could see what would be.
        const isSeen = showsFocus || currentRow?.activeFocus;
        showsFocus = true;
        if (event.key === Qt.Key_Delete && !isSeen) {
            event.accepted = true;
            return;
        }
        // A key that is held down goes on moving, but deletes or ticks one row only.
        event.accepted = (event.isAutoRepeat ? isAction(event.key) : act(event.key) || actOnText(event)) || scrollWithinRow(event.key) || go(event.key);
    }

    Connections {
        target: list.model as QtObject

        function onModelReset() {
            list.startAtTop();
            if (!list.enabled)
                keeper.restoreSoon();
        }
        function onRowsRemoved() {
            settling.restart();
        }
        function onRowsInserted(parent, first) {
            settling.restart();
            arrival.row = first;
            arrival.restart();
        }
    }

    ListPlaceKeeper {
        id: keeper

        parent: list
        list: list
    }
    // The view itself may hear of a new row after us.
    Timer {
        id: arrival

        property int row: -1

        interval: 0
        onTriggered: {
            list.forceLayout();
            list.show(row);
        }
    }
    Timer {
        id: resized

        interval: 0
        onTriggered: if (list.showsFocus && list.currentIndex >= 0)
            list.positionViewAtIndex(list.currentIndex, ListView.Contain)
    }
    // The second press of a double one would hit the row that has moved up.
    MouseArea {
        parent: list
        z: 2
        anchors.fill: parent
        enabled: settling.running
        visible: enabled
    }
    Timer {
        id: settling

        interval: 400
    }
    FocusRing {
        parent: list.contentItem
        z: 1
        anchors.fill: list.currentItem
        visible: list.showsFocus && list.activeFocus && list.currentItem !== null
    }
    // Above the rows it sees every press, and leaves it to them.
    Item {
        parent: list
        z: 1
        anchors.fill: parent

        PointHandler {
            onActiveChanged: if (active)
                list.showsFocus = false
        }
    }
    EmptyState {
        id: empty

        parent: list
        x: (parent.width - width) / 2
        y: Math.max(Theme.unit, (parent.height - height) / 2)
        width: Math.min(parent.width - 4 * Theme.unit, 400 * Theme.textScale)
        visible: list.count === 0
        title: list.emptyTitle
        hint: list.emptyHint
        actionText: list.emptyAction
        onActionTriggered: list.emptyActionTriggered()
    }

    function startAtTop() {
        currentIndex = count > 0 ? 0 : -1;
        positionViewAtBeginning();
    }

    /// Makes a row the current one where it can be seen.
    function show(row: int) {
        // In this order: the other way round the view may leave a hole above the rows.
        positionViewAtIndex(row, ListView.Contain);
        currentIndex = row;
    }

    function isAction(key: int): bool {
        return key === Qt.Key_Return || key === Qt.Key_Enter || key === Qt.Key_Space || key === Qt.Key_Delete;
    }

    /// Lets a key act on the current row; false for a key that does not.
    function act(key: int): bool {
        if (!currentRow)
            return false;
        switch (key) {
        case Qt.Key_Escape:
            if (!currentRow.isOpen)
                return false;
            currentRow.close();
            return true;
        case Qt.Key_Return:
        case Qt.Key_Enter:
            currentRow.clicked();
            return true;
        case Qt.Key_Space:
            currentRow.spacePressed();
            return true;
        case Qt.Key_Delete:
            currentRow.actionTriggered();
            return true;
        default:
            return false;
        }
    }

    /// Lets a key act on the current row's text, where there is something to do with it.
    function actOnText(event: KeyEvent): bool {
        if (!currentRow?.hasMenu)
            return false;
        const isMenuKey = event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.matches(StandardKey.Copy))
            currentRow.copyPressed();
        else if (isMenuKey)
            currentRow.menuRequested(currentRow.width / 2, Math.min(currentRow.height / 2, 2 * Theme.touchTarget));
        else
            return false;
        return true;
    }

    /// A row that is higher than the list is read to its end before a key leads on to the next; false for a key
    /// that leads on.
    function scrollWithinRow(key: int): bool {
        const isDown = key === Qt.Key_Down || key === Qt.Key_PageDown;
        const isUp = key === Qt.Key_Up || key === Qt.Key_PageUp;
        if (!currentItem || currentItem.height <= height || !isDown && !isUp)
            return false;
        const top = currentItem.y - Theme.unit;
        const bottom = currentItem.y + currentItem.height + Theme.unit - height;
        const before = contentY;
        const wanted = contentY + (isDown ? 1 : -1) * height / 2;
        if (isDown ? contentY < bottom : contentY > top)
            contentY = Math.max(top, Math.min(bottom, wanted));
        return contentY !== before;
    }

    /// Moves the current row by a key other than an arrow; false for a key that does not.
    function go(key: int): bool {
        const page = currentItem ? Math.max(1, Math.floor(height / (currentItem.height + spacing))) : 1;
        const targets = {
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: count - 1,
            [Qt.Key_PageUp]: currentIndex - page,
            [Qt.Key_PageDown]: currentIndex + page
        };
        if (count === 0 || !(key in targets))
            return false;
        const target = Math.max(0, Math.min(count - 1, targets[key]));
        // At the end of a row that is higher than the list nothing is turned over any more.
        if (target !== currentIndex || key === Qt.Key_Home || key === Qt.Key_End)
            show(target);
        return true;
    }
}
