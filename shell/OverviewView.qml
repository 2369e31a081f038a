// SPDX-License-Identifier: MIT
// The guide: its pages below one another, as wide as the window to begin with.
import QtQuick
import GiggleArchives

AppPage {
    id: page

    required property OverviewViewController screen

    title: screen.title

    Rectangle {
        objectName: "TextView"
        anchors.fill: parent
        anchors.margins: Theme.unit / 2
        radius: Theme.fieldRadius
        color: "transparent"
        border.width: 1
        border.color: Theme.line
    }
    PdfView {
        anchors.fill: parent
        anchors.margins: Theme.unit / 2 + 1
        focus: true
        name: page.title
        document: page.screen.document
    }
}
