// SPDX-License-Identifier: MIT
// Makes the exchange file, shows it and hands it on.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property ExportViewController screen
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
            columns: page.isWide ? 3 : 1
            columnSpacing: Theme.unit
            rowSpacing: Theme.unit

            AppButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                objectName: "ExportButton"
                text: qsTr("Export")
                focus: page.screen.isExportButtonEnabled
                enabled: page.screen.isExportButtonEnabled
                onClicked: page.screen.CreateUpdateFile()
            }
            AppButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                objectName: "SaveButton"
                text: qsTr("Save To Files")
                focus: page.screen.isSaveButtonEnabled // the other has done its work
                enabled: page.screen.isSaveButtonEnabled
                onClicked: page.screen.SaveToFiles()
            }
            AppButton {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                objectName: "EmailButton"
                text: qsTr("Email File")
                enabled: page.screen.isEmailButtonEnabled
                onClicked: page.screen.WriteTextFile()
            }
        }
        WorkProgress {
            Layout.fillWidth: true
            objectName: "ProgressView"
            value: page.screen.ProgressView

            Behavior on value {
                NumberAnimation {
                    duration: Theme.animationTime
                }
            }
        }
        LargeTextView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.minimumHeight: leastHeight
            objectName: "ExportTextView"
            name: qsTr("File contents")
            content: page.screen.ExportTextView
        }
    }
    BusyIndicator {
        anchors.centerIn: parent
        visible: running
        running: page.screen.isActivityIndicatorAnimating
        Accessible.ignored: true
    }
}
