// SPDX-License-Identifier: MIT
// The keys that do something, by place, as they are shown to the user. Each row is a text of keys, alternatives
// apart by a blank, and what they do. Whoever gives a key a meaning adds it here.
import QtQml

QtObject {
    readonly property var groups: [
        {
            title: qsTr("Everywhere"),
            rows: [
                ["F1 ? Ctrl+/", qsTr("show this list")],
                ["Esc", qsTr("go back, or put away what is open")],
                ["Tab Shift+Tab", qsTr("go to the next control, or the one before")],
                ["Enter Space", qsTr("press the button")],
                ["Up Down", qsTr("go through the buttons of a menu or a sheet")],
                ["Left Right", qsTr("choose another segment or tab")]
            ]
        },
        {
            title: qsTr("Lists"),
            rows: [
                ["Ctrl+N", qsTr("new joke, category or rating")],
                ["Ctrl+F", qsTr("search; Down leads on to the rows, Esc clears the search")],
                ["Ctrl+P", qsTr("print the jokes on show")],
                ["Up Down", qsTr("go to the next row, or the one before")],
                ["PageUp PageDown", qsTr("go one page of rows")],
                ["Home End", qsTr("go to the first or the last row")],
                ["Enter", qsTr("open the row")],
                ["Space", qsTr("tick the row's box")],
                ["Menu Shift+F10", qsTr("open the row's menu")],
                ["Ctrl+C", qsTr("copy the row's joke")],
                ["Delete", qsTr("delete the row")],
                ["Ctrl+Z", qsTr("bring back what was just deleted")]
            ]
        },
        {
            title: qsTr("Adding and editing"),
            rows: [
                ["Ctrl+S", qsTr("save")],
                ["Ctrl+P", qsTr("print the joke")],
                ["Up Down", qsTr("pick a name in a field; Enter puts the names away")],
                ["Enter", qsTr("save the name of a category or rating")]
            ]
        },
        {
            title: qsTr("Settings and printing"),
            rows: [
                ["A-Z", qsTr("pick the font, color, printer or paper that begins so")],
                ["Up Down", qsTr("make a size or a number of copies larger or smaller")],
                ["Ctrl+P", qsTr("print the document")]
            ]
        },
        {
            title: qsTr("Long texts and the guide"),
            rows: [
                ["Up Down PageUp PageDown", qsTr("scroll")],
                ["Home End", qsTr("scroll to the beginning or the end")],
                ["Ctrl+C", qsTr("copy a document, or the text of a file")],
                ["Ctrl++ Ctrl+-", qsTr("make the guide's pages larger or smaller")],
                ["Ctrl+0", qsTr("make them as wide as the window")]
            ]
        }
    ]
    /// Keys whose signs are not read aloud, or not as they are called.
    readonly property var spokenNames: ({
            "Ctrl": qsTr("Control"),
            "Esc": qsTr("Escape"),
            "PageUp": qsTr("Page Up"),
            "PageDown": qsTr("Page Down"),
            "A-Z": qsTr("Letters"),
            "?": qsTr("Question Mark"),
            "/": qsTr("Slash"),
            "+": qsTr("Plus"),
            "-": qsTr("Minus")
        })

    /// What a screen reader says for a row: "Control N: new joke".
    function spoken(row: var): string {
        const chords = row[0].split(" ").map(chord => chord.split(/\+(?=.)/).map(key => spokenNames[key] ?? key).join(" "));
        return qsTr("%1: %2").arg(chords.join(qsTr(" or "))).arg(row[1]);
    }
}
