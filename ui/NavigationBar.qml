// SPDX-License-Identifier: MIT
// The bar above a page: the way back, and the title or what the page puts in its place.
import QtQuick
import GiggleArchives

Item {
    id: bar

    property string title
    /// Stands in the bar in the title's place, as wide as there is room.
    property Item titleView: null
    readonly property real sideWidth: back.width + Theme.unit

    signal backRequested
    signal tapped

    implicitHeight: Math.max(back.height, middle.height) + Theme.unit

    TapHandler {
        onTapped: bar.tapped()
    }
    IconButton {
        id: back

        x: Theme.unit / 2
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Back")
        iconSource: Theme.icon("back", Theme.dark)
        fill: "transparent"
        borderWidth: 0
        onClicked: bar.backRequested()
    }
    // In the middle of the bar where there is room, else all that the way back leaves free.
    Item {
        id: middle

        readonly property real room: bar.width - bar.sideWidth - Theme.unit
        readonly property real wanted: Math.max(bar.titleView?.implicitWidth ?? 0, Theme.readableWidth / 2 * Theme.textScale)

        x: Math.max(bar.sideWidth, (bar.width - width) / 2)
        anchors.verticalCenter: parent.verticalCenter
        width: bar.titleView ? Math.min(room, wanted) : room - bar.sideWidth
        height: bar.titleView ? bar.titleView.height : heading.height
    }
    // A screen reader hears the title also where something else stands in its place.
    Item {
        anchors.fill: middle
        Accessible.role: Accessible.Heading
        Accessible.name: bar.title
    }
    Text {
        id: heading

        anchors.centerIn: middle
        width: middle.width
        visible: !bar.titleView
        text: bar.title.slice(0, 500) // more never fits, and takes long to lay out
        textFormat: Text.PlainText
        color: Theme.text
        font.pixelSize: Theme.titleSize
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
    }
    Binding {
        target: bar.titleView
        when: bar.titleView !== null
        property: "parent"
        value: middle
    }
    Binding {
        target: bar.titleView
        when: bar.titleView !== null
        property: "width"
        value: middle.width
    }
}
