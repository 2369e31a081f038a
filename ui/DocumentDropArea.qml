// SPDX-License-Identifier: MIT
// Takes a file that is dropped on it, and shows that it would while one is held over it.
import QtQuick
import GiggleArchives

DropArea {
    id: area

    signal documentDropped(url document)

    onEntered: drag => drag.accepted = drag.hasUrls
    onDropped: drop => {
        if (!drop.hasUrls)
            return;
        drop.accept(Qt.CopyAction);
        documentDropped(drop.urls[0]);
    }

    Rectangle {
        anchors.fill: parent
        visible: area.containsDrag
        color: Qt.alpha(Theme.focus, 0.15)
        border.width: 3
        border.color: Theme.focus

        Text {
            anchors.centerIn: parent
            padding: 2 * Theme.unit
            text: qsTr("Drop the file to import it")
            color: Theme.text
            font.pixelSize: Theme.titleSize
            font.bold: true

            Rectangle {
                z: -1
                anchors.fill: parent
                radius: Theme.radius
                color: Theme.surface
            }
        }
    }
}
