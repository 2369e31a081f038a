// SPDX-License-Identifier: MIT
// What is too high for its place, and scrolls, also by the usual keys: who has the keyboard hands them to
// `scrollBy`.
import QtQuick
import QtQuick.Controls.Basic
import GiggleArchives

Flickable {
    id: area

    readonly property bool overflows: contentHeight > height + 1
    /// Whether the bar stays in sight, where nothing else tells that there is more.
    property bool alwaysShowsBar: false

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    ScrollBar.vertical: ScrollBar {
        policy: area.alwaysShowsBar && area.overflows ? ScrollBar.AlwaysOn : ScrollBar.AsNeeded
        Accessible.ignored: true
    }

    /// Scrolls as a key says; false for a key that does not, and where everything is in sight.
    function scrollBy(key: int): bool {
        const line = 3 * Theme.bodySize;
        const most = contentHeight - height;
        const steps = {
            [Qt.Key_Up]: -line,
            [Qt.Key_Down]: line,
            [Qt.Key_PageUp]: line - height,
            [Qt.Key_PageDown]: height - line,
            [Qt.Key_Home]: -most,
            [Qt.Key_End]: most
        };
        if (!overflows || !(key in steps))
            return false;
        contentY = Math.max(0, Math.min(most, contentY + steps[key]));
        return true;
    }
}
