// SPDX-License-Identifier: MIT
// One joke out of all, and the button for another.
import QtQuick
import QtQuick.Layouts
import GiggleArchives

AppPage {
    id: page

    required property JokeOfDayViewController screen

    title: screen.title

    FormScroller {
        anchors.fill: parent
        name: page.title

        FormField {
            Layout.fillWidth: true
            objectName: "CategoryTextField"
            name: qsTr("Category")
            readOnly: true
            text: page.screen.CategoryTextField
        }
        FormField {
            Layout.fillWidth: true
            objectName: "RatingTextField"
            name: qsTr("Rating")
            readOnly: true
            text: page.screen.RatingTextField
        }
        FormTextArea {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.minimumHeight: leastHeight
            objectName: "JokeTextView"
            name: qsTr("Joke")
            readOnly: true
            text: page.screen.JokeTextView
        }
        AppButton {
            Layout.fillWidth: true
            Layout.topMargin: Theme.unit / 2
            text: qsTr("Shuffle")
            isProminent: true
            focus: true
            onClicked: {
                page.screen.ShuffleJokes();
                announcement.say(page.screen.JokeTextView);
            }
        }
    }
    Announcement {
        id: announcement
    }
}
