// SPDX-License-Identifier: MIT
// What the pages that add and rename a name share: the field, which has the keyboard at once, and Save. Enter in
// the field saves, too.
import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property NameEditor editor
    property alias text: field.text
    property alias endsEditingOnTap: form.endsEditingOnTap

    signal edited(string text)

    title: editor.title

    Shortcut {
        sequence: "Ctrl+S"
        enabled: page.isActive
        onActivated: page.editor.SaveGenre()
    }

    FormScroller {
        id: form

        anchors.fill: parent
        name: page.title
        endsEditingOnTap: false

        FormField {
            id: field

            Layout.fillWidth: true
            objectName: page.editor.fieldName + "TextField"
            name: page.editor.fieldName
            focus: true
            onEdited: text => page.edited(text)
            onAccepted: page.editor.SaveGenre()
        }
        AppButton {
            Layout.fillWidth: true
            Layout.topMargin: Theme.unit / 2
            objectName: "SaveButton"
            text: qsTr("Save")
            isProminent: true
            onClicked: page.editor.SaveGenre()
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
