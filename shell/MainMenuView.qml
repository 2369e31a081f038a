// SPDX-License-Identifier: MIT
// The main menu: one button that folds out the ten areas of the application below it. What stands above them
// keeps its place: it lies where the whole column, folded out, is in the middle of the window.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

AppPage {
    id: page

    required property ViewController screen

    title: screen.title
    StackView.onActivating: menuButton.focus = true

    Flickable {
        id: scroller

        readonly property real marginAbove: Math.max(2 * Theme.unit, (height - column.fullHeight) / 2)

        anchors.fill: parent
        contentHeight: column.y + column.height + 2 * Theme.unit
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.Pane
        Accessible.name: page.title
        ScrollBar.vertical: ScrollBar {
            Accessible.ignored: true
        }

        Column {
            id: column

            readonly property real buttonHeight: menuButton.height + spacing
            readonly property real fullHeight: menuButton.y + (areas.count + 1) * buttonHeight

            y: scroller.marginAbove
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(page.width - 4 * Theme.unit, 400)
            spacing: Theme.unit
            Keys.onDownPressed: page.moveFocus(true)
            Keys.onUpPressed: page.moveFocus(false)

            Image {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: page.height >= 740 // on a phone the ten buttons need the room
                sourceSize.width: 96
                sourceSize.height: 96
                source: "qrc:/resources/icons/org.gigglearchives.GiggleArchives.svg"
            }
            Text {
                width: parent.width
                bottomPadding: Theme.unit
                text: page.title
                color: Theme.text
                font.pixelSize: Theme.heroSize
                font.bold: true
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            AppButton {
                id: menuButton

                width: parent.width
                text: qsTr("Menu")
                isProminent: true
                font.bold: true
                focus: true
                onClicked: page.screen.HandleSelection()
                onActiveFocusChanged: if (activeFocus)
                    page.reveal(menuButton)
            }

            Repeater {
                id: areas

                model: [
                    { outlet: "JokeListButton", title: qsTr("Joke List"), segue: Segues.JokeList },
                    { outlet: "AddJokeButton", title: qsTr("Add Joke"), segue: Segues.AddJoke },
                    { outlet: "ListByCategoryButton", title: qsTr("Jokes by Category"), segue: Segues.TabBarController },
                    { outlet: "JokeOfDayButton", title: qsTr("Joke of the Day"), segue: Segues.JokeOfDay },
                    { outlet: "PrintButton", title: qsTr("Print"), segue: Segues.Print },
                    { outlet: "ReferenceListsButton", title: qsTr("Reference Lists"), segue: Segues.ReferenceLists },
                    { outlet: "DefaultSettingsButton", title: qsTr("Default Settings"), segue: Segues.DefaultSettings },
                    { outlet: "ImportExportButton", title: qsTr("Import / Export"), segue: Segues.ImportExport },
                    { outlet: "RateShareButton", title: qsTr("Rate / Share"), segue: Segues.RateShare },
                    { outlet: "AppOverviewButton", title: qsTr("Overview"), segue: Segues.AppOverview }
                ]

                AppButton {
                    id: areaButton

                    required property var modelData
                    /// How far it is folded out, 0 to 1.
                    property real unfolded: page.screen.areaButtonsHidden ? 0 : 1

                    objectName: modelData.outlet
                    width: column.width
                    height: implicitHeight * unfolded
                    opacity: unfolded
                    visible: unfolded > 0
                    clip: unfolded < 1
                    text: modelData.title
                    enabled: page.screen.canPerform(modelData.segue)
                    onClicked: page.screen.performSegue(modelData.segue)
                    onActiveFocusChanged: if (activeFocus)
                        page.reveal(areaButton)

                    // At once where nobody sees it: on the way back to the menu.
                    Behavior on unfolded {
                        enabled: page.isActive

                        NumberAnimation {
                            duration: Theme.animationTime
                            easing.type: Easing.OutCubic
                        }
                    }
                }
            }
        }
    }

    /// Up and Down do what the tabulator does.
    function moveFocus(forward: bool) {
        const next = page.Window.activeFocusItem.nextItemInFocusChain(forward);
        next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    /// Scrolls so that a button with the keyboard can be seen.
    function reveal(button: Item) {
        const top = button.mapToItem(scroller.contentItem, 0, 0).y - 2 * Theme.unit;
        const bottom = top + button.height + 4 * Theme.unit;
        if (top < scroller.contentY)
            scroller.contentY = Math.max(0, top);
        else if (bottom > scroller.contentY + scroller.height)
            scroller.contentY = bottom - scroller.height;
    }
}
