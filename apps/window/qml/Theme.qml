pragma Singleton

import QtQuick

// Colours and measures. Light or dark follows the desktop's palette, sizes its font.
QtObject {
    readonly property SystemPalette system: SystemPalette {}
    readonly property FontMetrics metrics: FontMetrics {}
    readonly property bool dark: system.window.hslLightness < 0.5

    readonly property color background: dark ? "#000000" : "#F2F2F7"
    readonly property color card: dark ? "#1C1C1E" : "#FFFFFF"
    readonly property color pressed: dark ? "#2C2C2E" : "#E5E5EA"
    readonly property color bar: dark ? "#121214" : "#F9F9FB"
    readonly property color separator: dark ? "#38383A" : "#D1D1D6"
    readonly property color text: dark ? "#FFFFFF" : "#000000"
    readonly property color secondary: dark ? "#A1A1A8" : "#6C6C72"
    readonly property color placeholder: dark ? "#6E6E74" : "#A0A0A6"
    readonly property color chevron: dark ? "#5A5A5F" : "#C4C4C7"
    readonly property color accent: "#34495E"
    // The accent where it has to stand out from a dark ground.
    readonly property color accentText: dark ? "#9DB8D2" : accent
    readonly property color destructive: dark ? "#FF6961" : "#C9271C"
    readonly property color track: dark ? "#48484A" : "#DCDCE0"
    readonly property color dialog: dark ? "#242426" : "#FAFAFC"
    readonly property color band: dark ? "#39393D" : "#E9E9EE"
    readonly property color hint: dark ? "#48484C" : "#3A3A3E"
    readonly property color shade: dark ? "#99000000" : "#66000000"
    readonly property color warning: dark ? "#3A2E14" : "#FFF4D6"
    readonly property color warningText: dark ? "#FFE2A0" : "#5C4300"

    readonly property real scale: Math.max(1, Math.min(1.6, metrics.font.pixelSize / 13))
    readonly property int body: Math.round(16 * scale)
    readonly property int small: Math.round(13 * scale)
    readonly property int rowHeight: Math.round(46 * scale)
    readonly property int barHeight: Math.round(48 * scale)
    readonly property int inset: 16
    readonly property int radius: 12
    readonly property int widest: 640
    readonly property int wide: 700  // a window of this width or more has room for popovers
    readonly property int slide: 260

    // A colour of the page's own, or the window's where the page set none.
    function given(color: color, otherwise: color): color {
        return color.a > 0 ? color : otherwise;
    }
    // Whether a patch of this colour can't be told from the ground of a card.
    function swallows(color: color): bool {
        return Math.abs(color.r - card.r) + Math.abs(color.g - card.g) + Math.abs(color.b - card.b) < 0.12;
    }
    // What stays free at either side of the rows.
    function sideOf(width: real): real {
        return Math.max(inset, (width - widest) / 2);
    }
}
