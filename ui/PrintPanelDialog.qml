// SPDX-License-Identifier: MIT
// Follows `panel`: printer, copies, paper and the pages, or the progress of the work that was begun. Escape does
// what "Cancel" does.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import GiggleArchives

AppDialog {
    id: dialog

    required property WindowPrintPanel panel
    readonly property bool isWanted: panel.isShown
    readonly property bool isWorking: panel.isWorking
    /// Another dialog of the same size lies over this one, whose controls then must not be found.
    property bool isCovered: false
    /// The pages then stand beside the fields.
    readonly property bool isWide: width >= Theme.wideFrom
    readonly property bool canPrint: panel.canPrint && !panel.isForPdfOnly
    readonly property bool hasChoices: !panel.isForPdfOnly && !isWorking

    onIsWantedChanged: isWanted ? open() : close()
    onOpened: focusButton()
    // Who has gone to a field or to "Cancel" stays there.
    onCanPrintChanged: if (saveButton.focus || printButton.focus)
        focusButton()

    title: panel.title
    anchors.centerIn: parent
    width: parent ? Math.min(parent.width - 2 * Theme.unit, Theme.readableWidth * Math.min(Theme.textScale, 1.5)) : 0
    height: parent ? Math.min(parent.height - 2 * Theme.unit, panel.isForPdfOnly ? implicitHeight : 760) : 0
    fillColor: Theme.background
    horizontalPadding: 0
    contentHeight: heading.height + work.implicitHeight + failure.height + buttons.height + 4 * Theme.unit

    FocusScope {
        width: dialog.availableWidth
        height: dialog.availableHeight
        visible: !dialog.isCovered
        focus: true
        Keys.onEscapePressed: dialog.panel.cancel()
        Keys.onBackPressed: dialog.panel.cancel()

        DialogTitle {
            id: heading

            width: parent.width
            bottomPadding: Theme.unit
            text: dialog.title
        }
        FormScroller {
            anchors.top: heading.bottom
            anchors.bottom: failure.top
            width: parent.width
            visible: dialog.hasChoices
            name: qsTr("Print settings")

            GridLayout {
                columns: dialog.isWide ? 2 : 1
                columnSpacing: 2 * Theme.unit
                rowSpacing: Theme.unit

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.preferredWidth: 300
                    Layout.alignment: Qt.AlignTop
                    spacing: Theme.unit

                    PickerField {
                        Layout.fillWidth: true
                        name: qsTr("Printer")
                        readOnly: true
                        picker: pickerSheet
                        choices: dialog.panel.printers
                        text: dialog.panel.printer
                        enabled: dialog.panel.canPrint
                        opacity: enabled ? 1 : 0.5
                        onPicked: row => dialog.panel.choosePrinter(row)
                    }
                    Label {
                        Layout.fillWidth: true
                        visible: text.length > 0
                        text: dialog.panel.hint
                        textFormat: Text.PlainText
                        color: Theme.mutedText
                        font.pixelSize: Theme.smallSize
                        wrapMode: Text.Wrap
                    }
                    GridLayout {
                        Layout.fillWidth: true
                        columns: Theme.textScale > 1.5 ? 1 : 2
                        columnSpacing: 2 * Theme.unit
                        rowSpacing: Theme.unit

                        Stepper {
                            Layout.fillWidth: true
                            Layout.preferredWidth: 150
                            name: qsTr("Copies")
                            from: 1
                            to: dialog.panel.mostCopies
                            number: dialog.panel.copies
                            enabled: dialog.panel.canPrint
                            opacity: enabled ? 1 : 0.5
                            onStepped: number => dialog.panel.copies = number
                        }
                        PickerField {
                            Layout.fillWidth: true
                            Layout.preferredWidth: 150
                            name: qsTr("Paper")
                            readOnly: true
                            picker: pickerSheet
                            choices: dialog.panel.papers
                            text: dialog.panel.paper
                            onPicked: row => dialog.panel.choosePaper(row)
                        }
                    }
                }
                PagePreview {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.preferredWidth: 300
                    Layout.alignment: Qt.AlignTop
                    Layout.minimumHeight: leastHeight
                    leastPageHeight: dialog.isWide ? 140 : 220
                    panel: dialog.panel
                }
            }
        }
        ColumnLayout {
            id: work

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 2 * Theme.unit
            y: heading.height + Math.max(Theme.unit, (failure.y - heading.height - height) / 2)
            visible: dialog.isWorking
            spacing: Theme.unit

            Label {
                Layout.fillWidth: true
                text: dialog.panel.workText
                textFormat: Text.PlainText
                color: Theme.text
                font.pixelSize: Theme.bodySize
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            WorkProgress {
                Layout.fillWidth: true
                value: dialog.panel.progress
            }
        }
        Item {
            id: failure

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: buttons.top
            anchors.leftMargin: 2 * Theme.unit
            anchors.rightMargin: 2 * Theme.unit
            height: dialog.panel.failure ? failureText.implicitHeight : Theme.unit

            Text {
                id: failureText

                width: parent.width
                topPadding: Theme.unit
                bottomPadding: Theme.unit
                visible: text.length > 0
                text: dialog.panel.failure
                textFormat: Text.PlainText
                color: Theme.requiredText
                font.pixelSize: Theme.smallSize
                wrapMode: Text.Wrap
                maximumLineCount: 5
                elide: Text.ElideRight
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
        }
        GridLayout {
            id: buttons

            readonly property real lineWidth: cancelButton.implicitWidth + saveButton.implicitWidth + printButton.implicitWidth + 2 * columnSpacing

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.leftMargin: 2 * Theme.unit
            anchors.rightMargin: 2 * Theme.unit
            columns: lineWidth <= width ? 3 : 1
            columnSpacing: Theme.unit
            rowSpacing: Theme.unit

            AppButton {
                id: cancelButton

                Layout.fillWidth: true
                alwaysShowsFocus: true
                text: qsTr("Cancel")
                onClicked: dialog.panel.cancel()
            }
            AppButton {
                id: saveButton

                Layout.fillWidth: true
                alwaysShowsFocus: true
                text: qsTr("Save as PDF")
                enabled: !dialog.isWorking
                isProminent: true
                onEnabledChanged: dialog.focusButton()
                onClicked: dialog.panel.saveAsPdf()
            }
            AppButton {
                id: printButton

                Layout.fillWidth: true
                alwaysShowsFocus: true
                visible: !dialog.panel.isForPdfOnly
                text: qsTr("Print")
                enabled: !dialog.isWorking && dialog.canPrint
                isProminent: true
                onClicked: dialog.panel.print()
            }
        }
        PickerSheet {
            id: pickerSheet

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: Theme.borderWidth
            anchors.bottomMargin: Theme.borderWidth - dialog.bottomPadding
            maximumHeight: parent.height - heading.height
        }
    }

    function focusButton() {
        if (!opened)
            return;
        const button = isWorking ? cancelButton : canPrint ? printButton : saveButton;
        button.forceActiveFocus(Qt.OtherFocusReason);
    }
}
