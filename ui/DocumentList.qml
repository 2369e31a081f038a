// SPDX-License-Identifier: MIT
// What lies in the folder that `picker` looks into: folders first, then files. Arrows, Home, End and the Page keys
// move the current row, Enter takes it, Backspace leads to the parent folder.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Qt.labs.folderlistmodel
import GiggleArchives

Rectangle {
    id: frame

    required property WindowDocumentPicker picker
    /// A folder that nobody looks into is not watched either.
    property bool isWatching: true

    radius: Theme.fieldRadius
    color: Theme.surface
    border.width: 1
    border.color: Theme.line

    FolderListModel {
        id: entries

        folder: frame.isWatching ? frame.picker.folder : Qt.url("file:///nonexistent")
        sortField: FolderListModel.Name
        sortCaseSensitive: false
        showDirsFirst: true
        onStatusChanged: if (status === FolderListModel.Ready)
            list.begin()
    }
    ListView {
        id: list

        /// The folder that the user has come from, to be found again after going up.
        property url cameFrom
        property url shown

        anchors.fill: parent
        anchors.margins: Theme.unit / 2
        model: entries
        focus: true
        clip: true
        reuseItems: true
        cacheBuffer: 0 // a row that is being made ahead of time would not survive a change of folder
        activeFocusOnTab: true
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        highlightRangeMode: ListView.ApplyRange
        preferredHighlightBegin: 0
        preferredHighlightEnd: height
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Files")
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }
        Component.onCompleted: shown = frame.picker.folder
        Keys.onPressed: event => event.accepted = act(event) || go(event.key)

        delegate: DocumentRow {
            isMarked: !fileIsDir && fileName === frame.picker.fileName
            onPressed: {
                list.currentIndex = index;
                list.forceActiveFocus(Qt.MouseFocusReason);
                frame.picker.press(fileName);
            }
        }

        function begin() {
            currentIndex = count > 0 ? Math.max(0, entries.indexOf(cameFrom)) : -1;
            positionViewAtBeginning();
            positionViewAtIndex(currentIndex, ListView.Contain);
        }

        function act(event: KeyEvent): bool {
            switch (event.key) {
            case Qt.Key_Return:
            case Qt.Key_Enter:
            case Qt.Key_Space:
                // A key that is held down would run through folder after folder.
                if (event.isAutoRepeat || !currentItem)
                    return true;
                if (event.key === Qt.Key_Space)
                    frame.picker.press((currentItem as DocumentRow).fileName);
                else
                    frame.picker.activate((currentItem as DocumentRow).fileName);
                return true;
            case Qt.Key_Backspace:
                frame.picker.goUp();
                return true;
            default:
                return false;
            }
        }

        /// Moves the current row by a key other than an arrow; false for a key that does not.
        function go(key: int): bool {
            const page = currentItem ? Math.max(1, Math.floor(height / currentItem.height)) : 1;
            const targets = {
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: count - 1,
                [Qt.Key_PageUp]: currentIndex - page,
                [Qt.Key_PageDown]: currentIndex + page
            };
            if (count === 0 || !(key in targets))
                return false;
            const target = Math.max(0, Math.min(count - 1, targets[key]));
            positionViewAtIndex(target, ListView.Contain);
            currentIndex = target;
            return true;
        }
    }
    Label {
        anchors.fill: list
        anchors.margins: Theme.unit
        visible: entries.status === FolderListModel.Ready && entries.count === 0
        text: qsTr("This folder is empty.")
        color: Theme.mutedText
        font.pixelSize: Theme.bodySize
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    FocusRing {
        radius: frame.radius + 3
        visible: list.activeFocus && !list.currentItem
    }
    // The second press of a double one would hit a row of the folder that the first has opened.
    MouseArea {
        anchors.fill: parent
        visible: settling.running
    }
    Timer {
        id: settling

        interval: 400
    }
    Connections {
        target: frame.picker

        function onFolderChanged() {
            settling.restart();
            list.cameFrom = list.shown;
            list.shown = frame.picker.folder;
        }
    }

    function focusRows() {
        list.forceActiveFocus(Qt.OtherFocusReason);
    }
}
