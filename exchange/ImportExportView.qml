// SPDX-License-Identifier: MIT
// The way to the export and to the import.
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property ImportExportViewController screen

    title: screen.title

    FormScroller {
        anchors.fill: parent
        name: page.title

        AppButton {
            Layout.fillWidth: true
            Layout.topMargin: Theme.unit
            text: qsTr("Export Jokes")
            focus: true
            onClicked: page.screen.performSegue(Segues.ExportJokes)
        }
        AppButton {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            Layout.fillHeight: true
            Layout.maximumHeight: implicitHeight
            text: qsTr("Import Jokes")
            onClicked: page.screen.performSegue(Segues.ImportJokes)
        }
    }
}
