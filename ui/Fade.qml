// SPDX-License-Identifier: MIT
// How dialogs come (to: 1) and go (from: 1).
import QtQuick
import GiggleArchives

Transition {
    id: fade

    property real from: 0
    property real to: 0

    NumberAnimation {
        property: "opacity"
        from: fade.from
        to: fade.to
        duration: Theme.animationTime
    }
}
