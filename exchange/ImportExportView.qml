// SPDX-License-Identifier: MIT
// The way to the export and to the import: two buttons in the middle.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property ImportExportViewController screen

    title: screen.title

    component WayButton: AppButton {
        Layout.fillWidth: true
        Layout.maximumWidth: 400
        Layout.alignment: Qt.AlignHCenter
    }

    FormScroller {
        anchors.fill: parent
        name: page.title

        Item {
            Layout.fillHeight: true
        }
        WayButton {
            text: qsTr("Export Jokes")
            focus: true
            KeyNavigation.down: importButton
            onClicked: page.screen.performSegue(Segues.ExportJokes)
        }
        WayButton {
            id: importButton

            text: qsTr("Import Jokes")
            onClicked: page.screen.performSegue(Segues.ImportJokes)
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
