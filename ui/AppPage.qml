// SPDX-License-Identifier: MIT
// A screen's page. Its header is the navigation bar; the first page of all has none. Pages declare a required
// property `screen`, which Main.qml sets.
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
    /// The bar was tapped beside its controls.
    signal barTapped
    /// The page has come to rest on top.
    signal appeared
    /// The page is being destroyed, and needs its screen no more.
    signal released

    Component.onDestruction: released()

    // A second press on Save while the page slides out must not store a thing twice, and a page below another
    // one is not to be pressed by a client that needs no pointer.
    enabled: StackView.status === StackView.Active || StackView.status === StackView.Activating

    background: Rectangle {
        color: Theme.background
    }
    header: NavigationBar {
        visible: !page.barHidden && !page.isRoot
        height: visible ? implicitHeight : 0
        title: page.title
        titleView: page.titleView
        onBackRequested: page.backRequested()
        onTapped: page.barTapped()
    }
}
