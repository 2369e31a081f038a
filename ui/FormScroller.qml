// SPDX-License-Identifier: MIT
// The body of a page with fields: a column of readable width that fills the height, and scrolls where it does not
// fit. What has the keyboard is kept in sight.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import GiggleArchives

Flickable {
    id: scroller

    required property string name
    /// Whether a tap beside the fields ends editing.
    property bool endsEditingOnTap: true
    default property alias fields: column.data

    contentWidth: width
    contentHeight: Math.max(height, column.implicitHeight + 2 * column.y)
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.Pane
    Accessible.name: name
    ScrollBar.vertical: ScrollBar {
        Accessible.ignored: true
    }
    onHeightChanged: showFocus()
    onContentHeightChanged: showFocus()

    Connections {
        target: scroller.Window.window

        function onActiveFocusItemChanged() {
            scroller.showFocus();
            laidOut.restart();
        }
    }
    // With the page still being laid out, the item may not have its place yet.
    Timer {
        id: laidOut

        interval: 50
        onTriggered: scroller.showFocus()
    }
    TapHandler {
        enabled: scroller.endsEditingOnTap
        onTapped: scroller.dismissKeyboard()
    }
    ColumnLayout {
        id: column

        x: (scroller.width - width) / 2
        y: Theme.unit
        width: Math.min(scroller.width - 4 * Theme.unit, Theme.readableWidth)
        height: scroller.contentHeight - 2 * y
        spacing: Theme.unit
        onChildrenRectChanged: scroller.showFocus() // what has the keyboard gets its place later than the keyboard
    }

    function dismissKeyboard() {
        forceActiveFocus(Qt.OtherFocusReason);
    }

    function showFocus() {
        const item = Window.activeFocusItem;
        if (!item || !isWithin(item))
            return;
        const top = item.mapToItem(contentItem, 0, 0).y - Theme.unit;
        const bottom = top + Math.min(item.height, height - 2 * Theme.unit) + 2 * Theme.unit;
        contentY = Math.max(0, Math.min(top, Math.max(contentY, bottom - height), contentHeight - height));
    }

    function isWithin(item: Item): bool {
        for (let each = item; each; each = each.parent)
            if (each === column)
                return true;
        return false;
    }
}
