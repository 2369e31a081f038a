// SPDX-License-Identifier: MIT
// The hub of the reference lists: two buttons in the middle.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property ReferenceListViewController screen

    title: screen.title

    component ListButton: AppButton {
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
        ListButton {
            id: categories

            objectName: "CategoryButton"
            text: qsTr("Categories")
            focus: true
            KeyNavigation.down: ratings
            onClicked: page.screen.performSegue(Segues.CategoryList)
        }
        ListButton {
            id: ratings

            objectName: "RatingButton"
            text: qsTr("Ratings")
            onClicked: page.screen.performSegue(Segues.RatingList)
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
