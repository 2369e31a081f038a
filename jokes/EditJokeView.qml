// SPDX-License-Identifier: MIT
// Shows a joke and changes it: above the fields the favourite mark and the tools.
import QtQuick
import GiggleArchives

JokeEditorPage {
    id: page

    required property EditJokeViewController screen

    editor: screen

    Shortcut {
        sequence: "Ctrl+P"
        enabled: page.isActive
        onActivated: page.screen.PrintJoke()
    }

    component ToolButton: IconButton {
        fill: Theme.yellow
    }

    tools: Flow {
        width: parent.width
        spacing: Theme.unit

        FavoriteCheckBox {
            id: favorite

            objectName: "CheckBox"
            name: qsTr("Favorite")
            onClicked: page.screen.CheckBoxChecked(stateName)
        }
        Text {
            height: Math.max(Theme.touchTarget, implicitHeight)
            rightPadding: Theme.unit
            verticalAlignment: Text.AlignVCenter
            text: favorite.name
            color: Theme.text
            font.pixelSize: Theme.smallSize

            TapHandler {
                onTapped: favorite.toggle()
            }
        }
        ToolButton {
            objectName: "DecreaseFontSizeButton"
            text: qsTr("Smaller text")
            iconSource: Theme.icon("smaller", false)
            onClicked: page.screen.DecreaseFontSize()
        }
        ToolButton {
            objectName: "IncreaseFontSizeButton"
            text: qsTr("Larger text")
            iconSource: Theme.icon("larger", false)
            onClicked: page.screen.IncreaseFontSize()
        }
        ToolButton {
            objectName: "ShareButton"
            text: qsTr("Share")
            iconSource: Theme.icon("share", false)
            onClicked: page.screen.shareButtonClicked()
        }
        ToolButton {
            objectName: "PrintButton"
            text: qsTr("Print")
            iconSource: Theme.icon("print", false)
            onClicked: page.screen.PrintJoke()
        }
    }
    Component.onCompleted: favorite.setStateName(screen.CheckBox, true)

    Connections {
        target: page.screen

        function onCheckBoxChanged() {
            favorite.setStateName(page.screen.CheckBox, true);
        }
    }

    jokeView {
        fill: Theme.teal
        ink: screen.hasTextColor ? screen.textColor : Theme.brightInk
        horizontalAlignment: TextEdit.AlignHCenter
        textFont.family: screen.textFont.family
        textFont.pixelSize: Theme.jokeSize(screen.textFont.pixelSize)
        textFont.bold: screen.textFont.bold
    }
}
