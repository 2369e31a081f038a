// SPDX-License-Identifier: MIT
// A text for a screen reader alone, which reads it when it begins to show. It has to be taken away before the same
// one can be heard again, as `say` does.
import QtQuick

Item {
    id: announcement

    property string text

    width: 1
    height: 1
    visible: text.length > 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Timer {
        id: pause

        property string next

        interval: 100
        onTriggered: announcement.text = next
    }

    function say(message: string) {
        text = "";
        pause.next = message;
        pause.restart();
    }
}
