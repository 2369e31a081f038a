// SPDX-License-Identifier: MIT
// Colours, sizes and times that every page uses; sizes in logical pixels, times in milliseconds. The first
// properties are the system's wishes: Main.qml keeps them in step, and nothing else writes here. Texts have a
// contrast of 4.5:1 at least; where the user wants a high one, texts and outlines have 7:1.
pragma Singleton

import QtQuick

QtObject {
    id: theme

    property bool dark: false
    property bool highContrast: false
    /// Nothing slides, fades or springs back then.
    property bool reducesMotion: false
    /// The user works with keys, and has to see where they act.
    property bool isWithKeys: false
    /// The size of texts, 1 for the system's usual one.
    property real textScale: 1

    readonly property color background: choose("#f5f5f1", "#15181b", "#ffffff", "#000000")
    readonly property color surface: choose("#ffffff", "#2b3035", "#ffffff", "#000000")
    readonly property color text: choose("#16181a", "#f2f4f5", "#000000", "#ffffff")
    readonly property color mutedText: choose("#565e64", "#aab3b9", "#333333", "#d9d9d9")
    /// Borders of fields and dialogs.
    readonly property color line: dark ? "#ffffff" : "#000000"
    /// Borders of buttons, which are black unless that could not be seen.
    readonly property color outline: highContrast ? line : buttonBorder
    /// Labels of fields that must be filled in.
    readonly property color requiredText: choose(headerText, "#ff8a80", "#8b0000", "#ffb4ab")
    /// Names that are chosen.
    readonly property color accentText: dark ? focus : tint
    readonly property color focus: choose("#0a52c4", "#9cc2ff", "#003a9e", "#8ce0ff")

    // The same in both styles; rows and headers also where the contrast is to be high.
    readonly property color buttonBorder: "#000000"
    readonly property color yellow: "#ffd60a"
    readonly property color teal: "#30b0c7"
    /// Text and icons on yellow and teal.
    readonly property color brightInk: "#000000"
    readonly property color tint: "#0026a6"
    readonly property color tintInk: "#ffffff"
    readonly property color destructive: highContrast ? "#8b0000" : "#c62828"
    readonly property color destructiveInk: "#ffffff"
    // A pure red would not reach a contrast of 4.5:1 on light grey.
    readonly property color headerBackground: "#d3d3d3"
    readonly property color headerText: "#b00000"

    readonly property int unit: 8
    readonly property int radius: 10
    readonly property int fieldRadius: 5
    readonly property int borderWidth: 2
    readonly property int touchTarget: 44
    readonly property int readableWidth: 720
    /// From this width on there is room for two things side by side.
    readonly property int wideFrom: 560
    readonly property int focusWidth: highContrast ? 5 : 3
    readonly property int animationTime: reducesMotion ? 0 : 200

    readonly property int smallSize: Math.round(14 * textScale)
    readonly property int headerSize: Math.round(15 * textScale)
    readonly property int bodySize: Math.round(16 * textScale)
    // Titles are large to begin with, and their long words must not break: they stop growing until the texts below
    // them have caught up.
    readonly property int titleSize: Math.max(bodySize, Math.round(18 * Math.min(textScale, 1.5)))
    readonly property int heroSize: Math.max(bodySize, Math.round(26 * Math.min(textScale, 1.5)))
    /// Icons grow with the text, but not so far that four of them fill a line.
    readonly property int iconSize: Math.round(24 * Math.min(textScale, 1.5))

    function choose(light: color, dark: color, strongLight: color, strongDark: color): color {
        if (highContrast)
            return theme.dark ? strongDark : strongLight;
        return theme.dark ? dark : light;
    }

    /// How large a joke is drawn in a font of that size.
    function jokeSize(pixelSize: real): int {
        return Math.max(1, pixelSize * textScale);
    }

    /// Whether white is easier to see on that colour than black.
    function isDark(ground: color): bool {
        return 0.299 * ground.r + 0.587 * ground.g + 0.114 * ground.b < 0.5;
    }

    /// The icon of that name, drawn in black, or in white for a dark ground.
    function icon(name: string, onDark: bool): url {
        return "qrc:/resources/icons/" + name + (onDark ? "-light.svg" : ".svg");
    }
}
