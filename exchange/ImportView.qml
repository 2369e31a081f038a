// SPDX-License-Identifier: MIT
// Loads an exchange file and reads it into the collection.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property ImportViewController screen
    readonly property bool isWide: width >= Theme.wideFrom

    title: screen.title

    FormScroller {
        anchors.fill: parent
        name: page.title
        endsEditingOnTap: false

        FormTextArea {
            Layout.fillWidth: true
            Layout.preferredHeight: fullHeight
            objectName: "HelpTextView"
            name: qsTr("Help")
            readOnly: true
            text: page.screen.HelpTextView
        }
        GridLayout {
            Layout.fillWidth: true
            columns: page.isWide ? 2 : 1
            columnSpacing: Theme.unit
            rowSpacing: Theme.unit

            AppButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                objectName: "LoadFileButton"
                text: qsTr("Load File")
                focus: page.screen.isLoadFileButtonEnabled
                enabled: page.screen.isLoadFileButtonEnabled
                onClicked: page.screen.LoadFile()
            }
            AppButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                objectName: "ImportButton"
                text: qsTr("Import")
                focus: page.screen.isImportButtonEnabled
                enabled: page.screen.isImportButtonEnabled && !importing.running
                onClicked: importing.start()
            }
        }
        LargeTextView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.minimumHeight: leastHeight
            objectName: "ImportTextView"
            name: qsTr("File contents")
            content: page.screen.ImportTextView
        }
    }
    // An import keeps the window busy, for seconds where there is much: it has to be seen that something happens.
    BusyIndicator {
        anchors.centerIn: parent
        visible: running
        running: importing.running
        Accessible.ignored: true
    }
    Timer {
        id: importing

        interval: 50
        onTriggered: page.screen.ImportTextFile()
    }
}
