// SPDX-License-Identifier: MIT
// A text for a screen reader alone, which reads it when it begins to show. It has to be taken away before the same
// one can be heard again.
import QtQuick
import GiggleArchives

Item {
    property string text

    width: 1
    height: 1
    visible: text.length > 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
