// SPDX-License-Identifier: MIT
// A labelled field of several lines. `edited` tells of every new text; `text` is bound by the owner. Tab moves
// on. `shouldChange(replacement)` may refuse what is typed or pasted.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

FocusScope {
    id: control

    required property string name
    property string text
    property var shouldChange: null
    property bool isRequired: false
    property bool readOnly: false
    property color fill: Theme.surface
    property color ink: Theme.text
    property font textFont: Qt.font({pixelSize: Theme.bodySize})
    property color borderColor: Theme.line
    property int horizontalAlignment: TextEdit.AlignLeft
    /// High enough for some lines.
    readonly property real leastHeight: label.height + 5 * Theme.bodySize + 3 * Theme.unit

    /// High enough for the whole text.
    readonly property real fullHeight: frame.y + input.implicitHeight + 2

    signal edited(string text)

    implicitWidth: 200
    implicitHeight: leastHeight

    FieldLabel {
        id: label

        width: parent.width
        text: control.name
        isRequired: control.isRequired
    }
    Rectangle {
        id: frame

        y: label.height + Theme.unit / 2
        width: parent.width
        height: parent.height - y
        radius: Theme.fieldRadius
        color: control.fill
        border.width: 1
        border.color: Theme.highContrast ? Theme.line : control.borderColor
    }
    Flickable {
        id: scroller

        anchors.fill: frame
        anchors.margins: 1
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.Pane
        Accessible.name: qsTr("%1 area").arg(control.name)
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        TextArea.flickable: TextArea {
            id: input

            focus: true
            readOnly: control.readOnly
            padding: Theme.unit
            color: control.ink
            font: control.textFont
            textFormat: TextEdit.PlainText
            wrapMode: content.hasLongWord ? TextEdit.WrapAnywhere : TextEdit.Wrap
            horizontalAlignment: control.horizontalAlignment
            selectByMouse: true
            selectByKeyboard: true // also where it is read-only: the keys scroll it
            background: null
            Accessible.name: control.name
            Accessible.readOnly: control.readOnly
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }
    FocusRing {
        anchors.fill: frame
        radius: Theme.fieldRadius + 3
        visible: input.activeFocus
    }
    TextAreaContent {
        id: content

        textArea: input
        text: control.text
        shouldChange: control.shouldChange
        onTextChanged: control.edited(text)
    }
}
