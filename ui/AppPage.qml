// SPDX-License-Identifier: MIT
// A screen's page. Its header is the navigation bar: the way back, and the title or what the page puts in its
// place. The first page of all has no bar. Pages declare a required property `screen`, which Main.qml sets.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Page {
    id: page

    /// Stands in the bar in the title's place, as wide as there is room.
    property Item titleView: null
    property bool barHidden: false
    property bool isRoot: false
    /// Whether the page is at rest on top, so that its shortcuts are its own.
    readonly property bool isActive: StackView.status === StackView.Active

    signal backRequested
    /// The page has come to rest on top.
    signal appeared
    /// The page is being destroyed, and needs its screen no more.
    signal released

    Component.onDestruction: released()

    background: Rectangle {
        color: Theme.background
    }
    header: Item {
        id: bar

        readonly property real sideWidth: back.width + Theme.unit

        visible: !page.barHidden && !page.isRoot
        implicitHeight: visible ? Math.max(back.height, middle.height) + Theme.unit : 0

        IconButton {
            id: back

            x: Theme.unit / 2
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Back")
            iconSource: Theme.icon("back", Theme.dark)
            fill: "transparent"
            borderWidth: 0
            onClicked: page.backRequested()
        }
        // In the middle of the bar where there is room, else all that the way back leaves free.
        Item {
            id: middle

            readonly property real room: bar.width - bar.sideWidth - Theme.unit
            readonly property real wanted: Math.max(page.titleView?.implicitWidth ?? 0, Theme.readableWidth / 2 * Theme.textScale)

            x: Math.max(bar.sideWidth, (bar.width - width) / 2)
            anchors.verticalCenter: parent.verticalCenter
            width: page.titleView ? Math.min(room, wanted) : room - bar.sideWidth
            height: page.titleView ? page.titleView.height : heading.height
        }
        Text {
            id: heading

            anchors.centerIn: middle
            width: middle.width
            visible: !page.titleView
            text: page.title
            color: Theme.text
            font.pixelSize: Theme.titleSize
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Binding {
            target: page.titleView
            when: page.titleView !== null
            property: "parent"
            value: middle
        }
        Binding {
            target: page.titleView
            when: page.titleView !== null
            property: "width"
            value: middle.width
        }
    }
}
