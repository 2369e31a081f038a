// SPDX-License-Identifier: MIT
// Follows `picker`: a folder's path, ways to other folders, what lies in it, and the name that is taken. Escape does
// what "Cancel" does.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppDialog {
    id: dialog

    required property WindowDocumentPicker picker
    readonly property bool isWanted: picker.isShown
    /// Title, ways and path then share a line, and so do field and buttons.
    readonly property bool isLow: parent !== null && parent.width - 2 * Theme.unit >= Theme.wideFrom && parent.height < 436 * Math.min(Theme.textScale, 1.5)

    onIsWantedChanged: isWanted ? open() : close()
    onOpened: picker.isForSaving ? focusName() : list.focusRows()

    title: picker.title
    anchors.centerIn: parent
    width: parent ? Math.min(parent.width - 2 * Theme.unit, Theme.readableWidth * Math.min(Theme.textScale, 1.5)) : 0
    height: parent ? Math.min(parent.height - 2 * Theme.unit, 760) : 0
    fillColor: Theme.background

    FocusScope {
        width: dialog.availableWidth
        height: dialog.availableHeight
        focus: true
        Keys.onEscapePressed: dialog.picker.cancel()
        Keys.onBackPressed: dialog.picker.cancel()

        GridLayout {
            anchors.fill: parent
            columns: 1
            rowSpacing: Theme.unit

            GridLayout {
                columns: dialog.isLow ? 3 : 1
                columnSpacing: 2 * Theme.unit
                rowSpacing: Theme.unit

                DialogTitle {
                    Layout.fillWidth: !dialog.isLow
                    text: dialog.title
                }
                RowLayout {
                    spacing: Theme.unit

                    IconButton {
                        text: qsTr("Parent Folder")
                        iconSource: Theme.icon("up", Theme.dark)
                        enabled: dialog.picker.canGoUp
                        onClicked: dialog.picker.goUp()
                    }
                    Repeater {
                        model: dialog.picker.places

                        IconButton {
                            required property string modelData

                            text: modelData
                            iconSource: Theme.icon(modelData.toLowerCase(), Theme.dark)
                            onClicked: dialog.picker.goToPlace(modelData)
                        }
                    }
                }
                Text {
                    Layout.fillWidth: true
                    text: dialog.picker.folderPath
                    textFormat: Text.PlainText
                    color: Theme.text
                    font.pixelSize: Theme.bodySize
                    elide: Text.ElideLeft // its end is what tells folders apart
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    Accessible.description: qsTr("Folder")
                }
            }
            DocumentList {
                id: list

                Layout.fillWidth: true
                Layout.fillHeight: true
                picker: dialog.picker
                isWatching: dialog.visible
            }
            Text {
                Layout.fillWidth: true
                visible: text.length > 0
                text: dialog.picker.problem
                textFormat: Text.PlainText
                color: Theme.requiredText
                font.pixelSize: Theme.smallSize
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 4
                elide: Text.ElideMiddle
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
            GridLayout {
                columns: dialog.isLow ? 2 : 1
                columnSpacing: Theme.unit
                rowSpacing: Theme.unit

                FormField {
                    id: field

                    Layout.fillWidth: true
                    name: qsTr("File Name")
                    text: dialog.picker.fileName
                    onEdited: text => dialog.picker.fileName = text
                    onAccepted: dialog.picker.accept()
                }
                RowLayout {
                    Layout.fillWidth: !dialog.isLow
                    Layout.alignment: Qt.AlignBottom
                    spacing: Theme.unit

                    AppButton {
                        Layout.fillWidth: true
                        Layout.preferredWidth: dialog.isLow ? -1 : 1
                        alwaysShowsFocus: true
                        text: qsTr("Cancel")
                        onClicked: dialog.picker.cancel()
                    }
                    AppButton {
                        Layout.fillWidth: true
                        Layout.preferredWidth: dialog.isLow ? -1 : 1
                        alwaysShowsFocus: true
                        text: dialog.picker.isForSaving ? qsTr("Save") : qsTr("Open")
                        isProminent: true
                        onClicked: dialog.picker.accept()
                    }
                }
            }
        }
    }

    Connections {
        target: dialog.picker

        function onNameOffered() {
            field.select(0, dialog.picker.stemLength);
        }
    }

    /// What is likely to be changed of the name is selected.
    function focusName() {
        field.forceActiveFocus(Qt.OtherFocusReason);
        field.select(0, picker.stemLength);
    }
}
