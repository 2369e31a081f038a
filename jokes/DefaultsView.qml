// SPDX-License-Identifier: MIT
// The font, the size and the colour of listed jokes. The fields stand on a light ground in both styles, as their
// captions are black.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property DefaultsViewController screen

    title: screen.title

    component StepButton: IconButton {
        Layout.fillHeight: true
        implicitWidth: 1.4 * Theme.touchTarget
        fill: "transparent"
        borderWidth: 0
        autoRepeat: true
    }

    FormScroller {
        id: form

        anchors.top: parent.top
        anchors.bottom: picker.top
        width: parent.width
        name: page.title

        Rectangle {
            objectName: "ContentView"
            Layout.fillWidth: true
            implicitHeight: fields.implicitHeight + 4 * Theme.unit
            radius: Theme.radius
            color: Theme.dark ? Theme.headerBackground : Theme.surface
            border.width: 1
            border.color: Theme.buttonBorder

            ColumnLayout {
                id: fields

                anchors.fill: parent
                anchors.margins: 2 * Theme.unit
                spacing: 2 * Theme.unit

                PickerField {
                    Layout.fillWidth: true
                    objectName: "ListFontTextField"
                    name: qsTr("Font")
                    readOnly: true
                    focus: true
                    labelColor: Theme.brightInk
                    borderColor: Theme.buttonBorder
                    ink: page.screen.listFontInk
                    fill: Theme.isDark(ink) ? "white" : Theme.surface
                    horizontalAlignment: TextInput.AlignHCenter
                    textFont.family: page.screen.listFont.family
                    textFont.pixelSize: Math.min(Theme.jokeSize(page.screen.listFont.pixelSize), width / 8)
                    picker: picker
                    choices: page.screen.fontList
                    looks: page.screen.fontLooks
                    text: page.screen.ListFontTextField
                    onPicked: row => page.screen.didSelectRow(row, DefaultsViewController.FontPicker)
                    onIsPickingChanged: page.follow(isPicking, DefaultsViewController.FontPicker)
                }
                RowLayout {
                    Layout.fillWidth: true
                    spacing: 2 * Theme.unit

                    FormField {
                        id: size

                        Layout.fillWidth: true
                        objectName: "ListFontTextSizeTextField"
                        name: qsTr("Size")
                        readOnly: true
                        labelColor: Theme.brightInk
                        borderColor: Theme.buttonBorder
                        horizontalAlignment: TextInput.AlignHCenter
                        textFont.pixelSize: Math.min(Theme.jokeSize(page.screen.sizePreview), width / 3)
                        text: page.screen.ListFontTextSizeTextField
                        Keys.onUpPressed: page.screen.stepBy(1)
                        Keys.onDownPressed: page.screen.stepBy(-1)
                    }
                    Rectangle {
                        objectName: "ListStepper"
                        Layout.alignment: Qt.AlignBottom
                        implicitWidth: buttons.implicitWidth
                        implicitHeight: Math.max(Theme.touchTarget, buttons.implicitHeight)
                        radius: Theme.fieldRadius
                        color: Theme.yellow
                        border.width: 1
                        border.color: Theme.buttonBorder

                        RowLayout {
                            id: buttons

                            anchors.fill: parent
                            spacing: 0

                            StepButton {
                                text: qsTr("Smaller")
                                iconSource: Theme.icon("smaller", false)
                                enabled: page.screen.ListStepper > page.screen.leastListStepper
                                onClicked: page.screen.stepBy(-1)
                            }
                            Rectangle {
                                Layout.fillHeight: true
                                implicitWidth: 1
                                color: Theme.buttonBorder
                            }
                            StepButton {
                                text: qsTr("Larger")
                                iconSource: Theme.icon("larger", false)
                                enabled: page.screen.ListStepper < page.screen.greatestListStepper
                                onClicked: page.screen.stepBy(1)
                            }
                        }
                    }
                }
                RowLayout {
                    Layout.fillWidth: true
                    spacing: 2 * Theme.unit

                    PickerField {
                        id: color

                        Layout.fillWidth: true
                        objectName: "FontColorTextField"
                        name: qsTr("Color")
                        readOnly: true
                        labelColor: Theme.brightInk
                        borderColor: Theme.buttonBorder
                        ink: page.screen.hasColorLook ? page.screen.colorInk : Theme.text
                        fill: page.screen.hasColorLook ? page.screen.colorGround : Theme.surface
                        horizontalAlignment: TextInput.AlignHCenter
                        picker: picker
                        choices: page.screen.colorList
                        looks: page.screen.colorLooks
                        text: page.screen.FontColorTextField
                        onPicked: row => page.screen.didSelectRow(row, DefaultsViewController.ColorPicker)
                        onIsPickingChanged: page.follow(isPicking, DefaultsViewController.ColorPicker)
                    }
                    Rectangle {
                        objectName: "ColorLabel"
                        Layout.alignment: Qt.AlignBottom
                        implicitWidth: 2.8 * Theme.touchTarget
                        implicitHeight: color.inputArea.height
                        radius: Theme.fieldRadius
                        color: page.screen.hasColorLook ? page.screen.colorInk : "transparent"
                        border.width: 1
                        border.color: Theme.buttonBorder
                    }
                }
            }
        }
        Text {
            Layout.fillWidth: true
            text: qsTr("Joke lists follow when they are opened the next time.")
            color: Theme.mutedText
            font.pixelSize: Theme.smallSize
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Item {
            Layout.fillHeight: true
        }
    }
    PickerSheet {
        id: picker

        anchors.bottom: parent.bottom
        width: parent.width
        maximumHeight: page.height / 2
    }

    /// A field is being edited for as long as its picker is open.
    function follow(isPicking: bool, picker: int) {
        if (isPicking)
            screen.beginEditing(picker);
        else
            screen.endEditing();
    }
}
