// SPDX-License-Identifier: MIT
// The window: mirrors the navigation controller's stack of screens with their pages, and shows what it has to
// say.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

ApplicationWindow {
    id: window

    required property NavigationController navigation
    required property Appearance appearance
    required property ReviewInvitation reviewInvitation
    required property WindowShareSheet shareSheet
    required property WindowDocumentPicker documentPicker
    required property WindowPrintPanel printPanel
    required property DocumentOpening documentOpening
    /// Something lies over the page and has the keyboard.
    readonly property bool isCovered: navigation.alert.shown || sheetIsShown
    readonly property bool sheetIsShown: shareSheet.isShown || documentPicker.isOpen || printPanel.isShown || shortcutSheet.isShown
    readonly property PassingNotices passing: navigation.passingNotices

    title: qsTr("Giggle Archives")
    width: 420
    height: 800
    minimumWidth: 320
    minimumHeight: 320
    visible: true
    color: Theme.background
    font.pixelSize: Theme.bodySize
    palette {
        window: Theme.background
        windowText: Theme.text
        base: Theme.surface
        text: Theme.text
        button: Theme.surface
        buttonText: Theme.text
        mid: Theme.mutedText
        dark: Theme.text
        highlight: Theme.tint
        highlightedText: Theme.tintInk
        placeholderText: Theme.mutedText
        toolTipBase: Theme.surface
        toolTipText: Theme.text
    }

    Component.onCompleted: navigation.start()
    onClosing: close => close.accepted = isDiscarding || navigation.mayClose()

    /// The user has agreed to lose what is not saved.
    property bool isDiscarding: false

    Binding {
        target: window.documentOpening
        property: "isBlocked"
        value: window.isCovered
    }
    Binding {
        target: Theme
        property: "dark"
        value: window.appearance.dark
    }
    Binding {
        target: Theme
        property: "highContrast"
        value: window.appearance.highContrast
    }
    Binding {
        target: Theme
        property: "reducesMotion"
        value: window.appearance.reducesMotion
    }
    Binding {
        target: Theme
        property: "isWithKeys"
        value: window.appearance.isWithKeys
    }
    Binding {
        target: Theme
        property: "textScale"
        value: window.appearance.textScale
    }

    component Slide: Transition {
        id: slide

        property real from: 0
        property real to: 0

        NumberAnimation {
            property: "x"
            from: slide.from
            to: slide.to
            duration: Theme.animationTime
            easing.type: Easing.OutCubic
        }
    }

    // A notice that comes or goes moves what lies just above it, away from under a finger on its way there.
    MouseArea {
        z: 1
        anchors.left: stack.left
        anchors.right: stack.right
        anchors.bottom: stack.bottom
        height: Math.min(stack.height, 4 * Theme.touchTarget)
        visible: settling.running
    }
    Timer {
        id: settling

        interval: 500
    }
    Shortcut {
        sequences: ["F1", "Ctrl+/"]
        enabled: !window.isCovered
        onActivated: shortcutSheet.show()
    }
    StackView {
        id: stack

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: notices.top
        focus: true
        enabled: !window.isCovered // for clients that press what lies behind the alert, too
        Accessible.name: window.title
        Keys.onEscapePressed: window.navigation.back()
        Keys.onBackPressed: window.navigation.back()
        Keys.onPressed: event => {
            // Where it is not typed into a field.
            event.accepted = event.text === "?" && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier));
            if (event.accepted)
                shortcutSheet.show();
        }
        onBusyChanged: window.reportRest()

        // The page below moves a third of the way, as if it lay deeper.
        pushEnter: Slide {
            from: stack.width
        }
        pushExit: Slide {
            to: -stack.width / 3
        }
        popEnter: Slide {
            from: -stack.width / 3
        }
        popExit: Slide {
            to: stack.width
        }
    }

    Column {
        id: notices

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        onHeightChanged: settling.restart()

        NoticeBar {
            id: notice

            width: parent.width
            maximumHeight: window.height / 3
            text: window.navigation.notice
            onDismissed: {
                window.navigation.dismissNotice();
                window.focusPage();
            }
        }
        NoticeBar {
            id: confirmation

            width: parent.width
            maximumHeight: window.height / 3
            isPassing: true
            isCovered: window.isCovered
            text: window.passing.confirmation
            onDismissed: window.passing.dismissConfirmation()
        }
        NoticeBar {
            id: undoOffer

            width: parent.width
            maximumHeight: window.height / 3
            isPassing: true
            isCovered: window.isCovered
            text: window.passing.undoOffer
            actionText: qsTr("Undo")
            onActed: {
                window.passing.undo();
                window.focusPage();
            }
            onDismissed: {
                const hadFocus = hasFocus;
                window.passing.withdrawUndoOffer();
                if (hadFocus)
                    window.focusPage();
            }
        }
        // It waits behind the others: together they would leave little room for the page.
        NoticeBar {
            width: parent.width
            maximumHeight: window.height / 3
            text: window.reviewInvitation.shown && !notice.visible && !confirmation.visible && !undoOffer.visible ? qsTr("Do you enjoy Giggle Archives?") : ""
            actionText: qsTr("Rate")
            onActed: {
                window.reviewInvitation.rate();
                window.focusPage();
            }
            onDismissed: {
                window.reviewInvitation.dismiss();
                window.focusPage();
            }
        }
    }

    Shortcut {
        sequence: "Ctrl+Z"
        enabled: undoOffer.visible && !window.isCovered
        onActivated: undoOffer.acted()
    }

    AlertDialog {
        id: alertDialog

        alert: window.navigation.alert
        onAnswered: index => window.navigation.alertAnswered(index)
        onClosed: window.focusPage()
    }

    // The sheets are made when they are first wanted: starting needs none of them.
    component SheetLoader: Loader {
        id: loader

        required property bool isWanted
        required property string page
        required property var values

        signal closed

        anchors.fill: parent
        onIsWantedChanged: if (isWanted && status === Loader.Null)
            setSource(page, values)

        Connections {
            target: loader.item as Dialog

            function onClosed() {
                loader.closed();
            }
        }
    }
    SheetLoader {
        isWanted: window.shareSheet.isShown
        page: "ShareSheetDialog.qml"
        values: ({
                sheet: window.shareSheet
            })
        onClosed: window.focusPage()
    }
    SheetLoader {
        id: printSheet

        isWanted: window.printPanel.isShown
        page: "PrintPanelDialog.qml"
        values: ({
                panel: window.printPanel
            })
        onClosed: window.focusPage()
    }
    Loader {
        id: shortcutSheet

        readonly property Dialog sheet: item as Dialog
        readonly property bool isShown: sheet !== null && sheet.visible

        anchors.fill: parent

        function show() {
            setSource("ShortcutSheet.qml");
            sheet.open();
        }
        Connections {
            target: shortcutSheet.sheet

            function onClosed() {
                shortcutSheet.source = "";
                window.focusPage();
            }
        }
    }
    SheetLoader {
        isWanted: window.documentPicker.isShown
        page: "DocumentDialog.qml"
        values: ({
                picker: window.documentPicker
            })
        onClosed: window.focusPage()
        onStatusChanged: if (status === Loader.Error) {
            source = ""; // else the next request would load nothing
            window.documentPicker.cancel();
        }
    }
    Binding {
        target: printSheet.item as PrintPanelDialog
        property: "isCovered"
        value: window.documentPicker.isOpen
        when: printSheet.item !== null
    }

    DocumentDropArea {
        anchors.fill: parent
        enabled: !window.isCovered
        onDocumentDropped: document => window.documentOpening.open(document)
    }

    Connections {
        target: window.navigation

        function onCloseRequested() {
            window.isDiscarding = true;
            window.close();
        }
        function onPushed(screen, page, animated) {
            window.push(screen, page, animated ? StackView.PushTransition : StackView.Immediate);
        }
        function onPopped(count) {
            const target = stack.get(stack.depth - 1 - count, StackView.ForceLoad) as AppPage;
            target.barHidden = window.navigation.navigationBarHidden;
            stack.pop(target, StackView.PopTransition);
            window.reportRest();
        }
    }

    /// The navigation bar is shown or hidden with the page that comes in, so that the other keeps its looks.
    function push(screen: QtObject, url: url, operation: int) {
        const component = Qt.createComponent(url);
        if (component.status !== Component.Ready) {
            navigation.pageFailed(url, component.errorString());
            return;
        }
        const page = stack.push(component, {
            screen: screen,
            barHidden: navigation.navigationBarHidden,
            isRoot: stack.depth === 0
        }, operation) as AppPage;
        page.backRequested.connect(navigation.back);
        page.appeared.connect(() => navigation.pageDidAppear(screen));
        page.released.connect(() => navigation.pageRemoved(screen));
        reportRest();
    }

    /// Lets it be known which page is at rest on top, once one is.
    function reportRest() {
        const page = stack.currentItem as AppPage;
        if (stack.busy || !page)
            return;
        focusPage();
        page.appeared();
    }

    /// Gives the page on top the keyboard, unless something over it needs it.
    function focusPage() {
        if (stack.currentItem && !alertDialog.visible && !isCovered)
            stack.currentItem.forceActiveFocus(Qt.OtherFocusReason);
    }
}
