// SPDX-License-Identifier: MIT
// One name in a list of names. All rows are equally high; a long name takes a second line in smaller letters, and
// is read in full where it is renamed.
import QtQuick
import GiggleArchives

SwipeRow {
    id: row

    required property NameListViewController controller
    property string label

    name: label.trim().length > 0 ? label : qsTr("No name")
    actionText: qsTr("delete")
    height: Math.round(40 * Theme.textScale)
    onClicked: controller.selectRow(index)
    onActionTriggered: controller.deleteRow(index)

    Text {
        anchors.fill: parent
        anchors.leftMargin: 1.5 * Theme.unit
        anchors.rightMargin: 1.5 * Theme.unit
        anchors.topMargin: Theme.borderWidth
        anchors.bottomMargin: Theme.borderWidth
        text: row.label.slice(0, 500).replace(/\s+/g, " ") // more never fits, and takes long to lay out
        textFormat: Text.PlainText
        color: Theme.brightInk
        font.pixelSize: Theme.bodySize
        fontSizeMode: Text.Fit
        minimumPixelSize: Theme.smallSize
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }
}
