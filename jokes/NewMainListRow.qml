// SPDX-License-Identifier: MIT
// One joke in a list of jokes: category and check box, the joke, its rating where the list shows it. Thousands
// of rows fly past, so it has few items and computes its own layout. The check box follows the cell until it is
// ticked, which `favoriteTicked` tells.
import QtQuick
import GiggleArchives

SwipeRow {
    id: row

    required property newMainListTableViewCell cell
    property bool showsFavorite: true
    readonly property real margin: 1.5 * Theme.unit
    readonly property Item last: cell.RatingLabel ? rating : joke

    signal favoriteTicked(bool checked)

    name: cell.accessibleName || qsTr("Empty row")
    height: cell.hasContent ? last.y + last.height + Theme.unit : Theme.touchTarget
    onSpacePressed: if (favoriteBox.visible)
        favoriteBox.toggle()
    onCellChanged: showCell()
    Component.onCompleted: showCell()

    Text {
        id: category

        x: row.margin
        y: Theme.unit / 2
        width: row.showsFavorite ? favoriteBox.x - x : joke.width
        height: Math.max(implicitHeight + Theme.unit, row.showsFavorite ? favoriteBox.height : 0)
        verticalAlignment: Text.AlignVCenter
        text: row.cell.CategoryLabel
        textFormat: Text.PlainText
        color: Theme.brightInk
        font.pixelSize: Theme.smallSize
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
    }
    FavoriteCheckBox {
        id: favoriteBox

        x: row.width - width - Theme.unit / 2
        y: Theme.unit / 2
        visible: row.showsFavorite && row.cell.hasContent
        activeFocusOnTab: row.ListView.isCurrentItem || activeFocus
        // So that the list itself is the next stop when the keyboard comes back.
        onActiveFocusChanged: if (!activeFocus)
            focus = false
        name: qsTr("Favorite")
        onClicked: row.favoriteTicked(checked)
    }
    Text {
        id: joke

        x: row.margin
        y: category.y + category.height
        width: row.width - 2 * row.margin
        textFormat: Text.PlainText
        color: row.cell.hasTextColor ? row.cell.textColor : Theme.brightInk
        font.family: row.cell.fontFamily
        font.pixelSize: Theme.jokeSize(row.cell.fontPixelSize)
        horizontalAlignment: Text.AlignHCenter
    }
    Text {
        id: rating

        x: row.margin
        y: joke.y + joke.height + Theme.unit
        width: joke.width
        text: row.cell.RatingLabel
        textFormat: Text.PlainText
        color: Theme.brightInk
        font.pixelSize: Theme.smallSize
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
    }

    function showCell() {
        const wrapMode = cell.hasLongWord ? Text.WrapAnywhere : Text.Wrap;
        // Never a text with the mode that was meant for the last one: that could take a minute.
        if (joke.wrapMode !== wrapMode) {
            joke.text = "";
            joke.wrapMode = wrapMode;
        }
        // The line feed behind the text is no empty line to look at.
        joke.text = cell.JokeLabel.replace(/\n$/, "");
        showFavorite();
    }

    /// Animated where the user can follow it: a row that comes into view is not seen yet while it is filled.
    function showFavorite() {
        favoriteBox.setCheckState(cell.favorite ? VaneCheckbox.Checked : VaneCheckbox.Unchecked, true);
    }
}
