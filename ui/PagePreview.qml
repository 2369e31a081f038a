// SPDX-License-Identifier: MIT
// One of the pages as they will be printed, and the buttons that turn to the others.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: preview

    required property WindowPrintPanel panel
    property real leastPageHeight: 220
    readonly property real leastHeight: leastPageHeight + turning.height + Theme.unit
    /// High enough for the page to be as wide as there is room.
    readonly property real fullHeight: width * panel.paperSize.height / panel.paperSize.width + turning.height + Theme.unit
    readonly property real pageWidth: Math.min(sheetArea.width, sheetArea.height * panel.paperSize.width / panel.paperSize.height)

    implicitHeight: leastHeight

    Item {
        id: sheetArea

        anchors.top: parent.top
        anchors.bottom: turning.top
        anchors.bottomMargin: Theme.unit
        width: parent.width

        Rectangle {
            anchors.centerIn: parent
            width: Math.round(preview.pageWidth)
            height: Math.round(preview.pageWidth * preview.panel.paperSize.height / preview.panel.paperSize.width)
            color: "white" // as paper is, also when everything else is dark
            border.width: 1
            border.color: Theme.mutedText

            PagePicture {
                anchors.fill: parent
                anchors.margins: 1
                panel: preview.panel
            }
        }
    }
    Item {
        id: turning

        anchors.bottom: parent.bottom
        width: parent.width
        height: Math.max(backButton.height, pageLabel.implicitHeight)

        IconButton {
            id: backButton

            anchors.left: parent.left
            text: qsTr("Previous Page")
            iconSource: Theme.icon("back", Theme.dark)
            enabled: preview.panel.page > 1
            onClicked: preview.panel.page -= 1
        }
        Label {
            id: pageLabel

            anchors.left: backButton.right
            anchors.right: onButton.left
            anchors.verticalCenter: parent.verticalCenter
            text: preview.panel.pageText
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.smallSize
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        IconButton {
            id: onButton

            anchors.right: parent.right
            text: qsTr("Next Page")
            iconSource: Theme.icon("forward", Theme.dark)
            enabled: preview.panel.page < preview.panel.pageCount
            onClicked: preview.panel.page += 1
        }
    }
}
