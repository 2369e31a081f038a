// SPDX-License-Identifier: MIT
// What the pages that add and edit a joke share: the three fields, Save, and the picker of names. The tools above
// the fields are the page's own.
import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property JokeEditor editor
    /// Whether the first field has the keyboard from the beginning.
    property bool focusesFirstField: false
    property alias tools: toolBox.data
    property alias jokeView: joke

    title: editor.title
    onBarTapped: form.dismissKeyboard()

    Shortcut {
        sequence: "Ctrl+S"
        enabled: page.isActive
        onActivated: page.editor.SaveButtonClicked()
    }

    FormScroller {
        id: form

        anchors.top: parent.top
        anchors.bottom: picker.top
        width: parent.width
        name: page.title

        Item {
            id: toolBox

            Layout.fillWidth: true
            implicitHeight: childrenRect.height
            visible: children.length > 0
        }
        PickerField {
            id: category

            Layout.fillWidth: true
            objectName: "CategoryTextField"
            name: qsTr("Category")
            isRequired: true
            borderColor: Theme.buttonBorder
            focus: page.focusesFirstField
            picker: picker
            choices: page.editor.ListOfCatagories
            text: page.editor.CategoryTextField
            onEdited: text => page.editor.CategoryTextField = text
            onPicked: row => page.editor.didSelectRow(row, JokeEditor.CategoryPicker)
        }
        FormTextArea {
            id: joke

            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.minimumHeight: leastHeight
            objectName: "JokeTextView"
            name: qsTr("Joke")
            isRequired: true
            borderColor: Theme.buttonBorder
            text: page.editor.JokeTextView
            onEdited: text => page.editor.JokeTextView = text
            shouldChange: replacement => page.editor.shouldChangeText(replacement)
        }
        PickerField {
            id: rating

            Layout.fillWidth: true
            objectName: "RatingTextField"
            name: qsTr("Rating")
            borderColor: Theme.buttonBorder
            picker: picker
            choices: page.editor.ListOfRatings
            text: page.editor.RatingTextField
            onEdited: text => page.editor.RatingTextField = text
            onPicked: row => page.editor.didSelectRow(row, JokeEditor.RatingPicker)
        }
        AppButton {
            Layout.fillWidth: true
            Layout.topMargin: Theme.unit / 2
            objectName: "SaveButton"
            text: qsTr("Save")
            isProminent: true
            onClicked: page.editor.SaveButtonClicked()
        }
    }
    PickerSheet {
        id: picker

        anchors.bottom: parent.bottom
        width: parent.width
        maximumHeight: page.height / 2
    }
}
