// SPDX-License-Identifier: MIT
// A document's pages below one another. At zoom 1 the widest is as wide as the view, but not wider than can be
// read well. Pinching, Ctrl with the wheel or with plus, minus and 0, a double tap and the two buttons zoom; drags,
// the wheel and keys scroll.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: view

    required property string name
    required property PdfContent document
    readonly property real mostZoom: 5
    property real zoom: 1
    /// Whether the user works with keys, and has to see what has the keyboard.
    property bool usesKeys: false
    /// Pixels for a point.
    readonly property real scaleFactor: zoom * Math.min(scroller.width, widestColumn) / Math.max(1, document.widestPage)
    readonly property real widestColumn: 1.25 * Theme.readableWidth
    /// The buttons stand on what is free beside the pages; otherwise at the side or, in a tall window, below.
    readonly property bool hasMargin: width >= zoom * widestColumn + 2 * (zoomButtons.width + 2 * zoomButtons.anchors.margins)
    readonly property bool isTall: height > width

    ScrollArea {
        id: scroller

        width: parent.width - (view.hasMargin || view.isTall ? 0 : zoomButtons.width + 2 * Theme.unit)
        height: parent.height - (view.hasMargin || !view.isTall ? 0 : zoomButtons.height + 2 * Theme.unit)
        focus: true
        activeFocusOnTab: true
        contentWidth: Math.max(width, column.width)
        contentHeight: column.height
        Accessible.role: Accessible.Pane
        Accessible.name: view.name
        ScrollBar.horizontal: ScrollBar {
            Accessible.ignored: true
        }
        Keys.onPressed: event => event.accepted = view.act(event)

        Column {
            id: column

            x: Math.max(0, (scroller.width - width) / 2)
            width: view.document.widestPage * view.scaleFactor
            spacing: Theme.unit

            Repeater {
                id: pages

                model: view.document.pageCount

                PdfPageItem {
                    id: sheet

                    required property int index
                    readonly property size points: view.document.pageSize(index)

                    x: (column.width - width) / 2
                    width: points.width * view.scaleFactor
                    height: points.height * view.scaleFactor
                    content: view.document
                    page: index
                    // One view ahead in both directions.
                    inSight: y < scroller.contentY + 2 * scroller.height && y + height > scroller.contentY - scroller.height
                    Accessible.role: Accessible.Section
                    Accessible.name: qsTr("Page %1 of %2").arg(index + 1).arg(pages.count)

                    Repeater {
                        model: view.document.paragraphs(sheet.index)

                        Item {
                            id: paragraph

                            required property pdfParagraph modelData

                            x: modelData.place.x * sheet.width
                            y: modelData.place.y * sheet.height
                            width: modelData.place.width * sheet.width
                            height: modelData.place.height * sheet.height
                            Accessible.role: Accessible.StaticText
                            Accessible.name: modelData.text
                        }
                    }
                }
            }
        }
        TapHandler {
            acceptedButtons: Qt.LeftButton
            onTapped: scroller.forceActiveFocus(Qt.MouseFocusReason)
            onDoubleTapped: eventPoint => view.zoomAt(view.zoom > 1.2 ? 1 : 2, eventPoint.scenePosition)
        }
    }
    // Beside the scroller, which would take the two fingers for a drag.
    PinchHandler {
        id: pinch

        property real startZoom: 1

        parent: scroller
        target: null
        onActiveChanged: {
            scroller.interactive = !active;
            startZoom = view.zoom;
        }
        onActiveScaleChanged: if (active)
            view.zoomAt(startZoom * activeScale, centroid.scenePosition)
    }
    WheelHandler {
        id: wheel

        parent: scroller
        acceptedModifiers: Qt.ControlModifier
        target: null
        onWheel: event => view.zoomAt(view.zoom * Math.pow(1.2, event.angleDelta.y / 120), wheel.point.scenePosition)
    }
    FocusRing {
        anchors.margins: 0
        radius: 0
        visible: scroller.activeFocus && view.usesKeys
    }
    EmptyState {
        anchors.centerIn: parent
        width: Math.min(parent.width - 4 * Theme.unit, 400 * Theme.textScale)
        visible: pages.count === 0
        title: qsTr("The document cannot be shown")
        hint: qsTr("Installing the application anew may bring it back.")
    }

    component ZoomButton: IconButton {
        width: implicitHeight
        fill: Theme.yellow
    }

    Grid {
        id: zoomButtons

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.unit
        columns: view.isTall ? 2 : 1
        spacing: Theme.unit
        visible: pages.count > 0

        ZoomButton {
            text: qsTr("Zoom in")
            iconSource: Theme.icon("larger", false)
            enabled: view.zoom < view.mostZoom
            onClicked: view.zoomBy(1.25)
        }
        ZoomButton {
            text: qsTr("Zoom out")
            iconSource: Theme.icon("smaller", false)
            enabled: view.zoom > 1
            onClicked: view.zoomBy(1 / 1.25)
        }
    }

    /// Zooms, and keeps what is at that place of the window where it is.
    function zoomAt(wanted: real, scenePosition: point) {
        const next = Math.max(1, Math.min(mostZoom, wanted));
        const at = scroller.mapFromItem(null, scenePosition);
        const x = (scroller.contentX + at.x - column.x) / zoom;
        const y = (scroller.contentY + at.y) / zoom;
        zoom = next;
        scroller.contentX = Math.max(0, x * next + column.x - at.x);
        scroller.contentY = Math.max(0, y * next - at.y);
        scroller.returnToBounds();
    }

    function zoomBy(factor: real) {
        zoomAt(zoom * factor, mapToItem(null, width / 2, height / 2));
    }

    /// Scrolls or zooms as a key says; false for a key that does neither.
    function act(event: KeyEvent): bool {
        usesKeys = true;
        if (event.modifiers & Qt.ControlModifier)
            return zoomByKey(event.key);
        const line = 3 * Theme.bodySize;
        if (event.key === Qt.Key_Left)
            scroller.contentX = Math.max(0, scroller.contentX - line);
        else if (event.key === Qt.Key_Right)
            scroller.contentX = Math.min(scroller.contentWidth - scroller.width, scroller.contentX + line);
        else if (event.key === Qt.Key_Space)
            return scroller.scrollBy(event.modifiers & Qt.ShiftModifier ? Qt.Key_PageUp : Qt.Key_PageDown);
        else
            return scroller.scrollBy(event.key);
        return true;
    }

    function zoomByKey(key: int): bool {
        if (key === Qt.Key_Plus || key === Qt.Key_Equal)
            zoomBy(1.25);
        else if (key === Qt.Key_Minus)
            zoomBy(1 / 1.25);
        else if (key === Qt.Key_0)
            zoomBy(1 / zoom);
        else
            return false;
        return true;
    }
}
