pragma Singleton

import QtQuick

// Colors and measures. Light or dark follows the desktop's palette, sizes its font.
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
    // Segments: their ground, the chosen one and its edge.
    readonly property color groove: dark ? "#2C2C2E" : "#E6E6EB"
    readonly property color chosen: dark ? "#636366" : "#FFFFFF"
    readonly property color chosenEdge: dark ? "#8E8E93" : "#B4B4BA"
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
    readonly property int wide: 700  // a window of this width or more has popovers
    readonly property int slide: 260

    // A color of the page's own, or the window's where the page set none.
    function given(color: color, otherwise: color): color {
        return color.a > 0 ? color : otherwise;
    }
    // Relative luminance and contrast as WCAG 2.1 defines them.
    function luminance(color: color): real {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
    }
    function contrast(one: color, other: color): real {
        const a = luminance(one), b = luminance(other);
        return (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
    }
    // How a color, which may be translucent, stands out from a card.
    function contrastOnCard(color: color): real {
        return contrast(Qt.tint(card, color), card);
    }
    // The color, or as little nearer to that of text as makes it stand out from a card.
    function legible(color: color): color {
        let mixed = Qt.tint(card, color);
        for (let i = 0; i < 10 && contrast(mixed, card) < 4; ++i)
            mixed = Qt.tint(mixed, Qt.rgba(text.r, text.g, text.b, 0.1));
        return mixed;
    }
    // Black or white, whichever has the greater contrast with this ground.
    function textOn(ground: color): color {
        return luminance(Qt.tint(card, ground)) > 0.18 ? "#000000" : "#FFFFFF";
    }
    // What stays free at either side of the rows.
    function sideOf(width: real): real {
        return Math.max(inset, (width - widest) / 2);
    }
}
