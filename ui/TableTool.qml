// SPDX-License-Identifier: MIT
// A button among the tools above a table.
import QtQuick.Layouts
import GiggleArchives

IconButton {
    Layout.fillWidth: true
    Layout.preferredWidth: 1.5 * Theme.touchTarget
    fill: Theme.yellow
}
