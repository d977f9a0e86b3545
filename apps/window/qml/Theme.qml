pragma Singleton

import QtQuick
import Quorvantis.Settings

// Colors and measures. Light or dark, the contrast and the sizes are the desktop's. Text stands out
// from what it lies on by 4.5, a control and its states by 3; with high contrast by 7 and 4.5.
QtObject {
    id: theme

    readonly property bool dark: Desktop.dark
    readonly property bool highContrast: Desktop.highContrast
    readonly property real controlGoal: highContrast ? 4.5 : 3

    readonly property color background: dark ? "#000000" : highContrast ? "#FFFFFF" : "#F2F2F7"
    readonly property color card: highContrast ? background : dark ? "#1C1C1E" : "#FFFFFF"
    readonly property color hovered: dark ? "#262629" : "#ECECF1"
    readonly property color pressed: dark ? "#303034" : "#E5E5EA"
    readonly property color bar: highContrast ? background : dark ? "#121214" : "#F9F9FB"
    readonly property color separator: highContrast ? edge : dark ? "#38383A" : "#D1D1D6"
    readonly property color text: dark ? "#FFFFFF" : "#000000"
    readonly property color secondary: highContrast ? text : dark ? "#AEAEB4" : "#5A5A60"
    readonly property color accent: highContrast ? (dark ? "#C4DCFF" : "#00306B") : dark ? "#A8CBFF" : "#0A4488"
    readonly property color accentText: accent
    readonly property color textOnAccent: dark ? "#000000" : "#FFFFFF"
    readonly property color destructive: highContrast ? (dark ? "#FFB3AD" : "#8C0D04") : dark ? "#FF8078" : "#B3231A"
    // What bounds a control, and marks on a row.
    readonly property color edge: highContrast ? text : dark ? "#98989D" : "#808086"
    // The part of a slider that isn't filled, and a switch that is off.
    readonly property color track: dark ? "#6E6E73" : "#929297"
    readonly property color knob: dark ? "#48484A" : "#FFFFFF"
    readonly property color switchOff: dark ? "#39393D" : "#E2E2E6"
    // In the strip of triggers: one that has a profile, and one that has none.
    readonly property color taken: highContrast ? text : dark ? accent : "#083F80"
    readonly property color free: highContrast ? "#757575" : dark ? "#6E6E73" : "#8B8B91"
    // Segments: their ground, and the chosen one where the choice leaves all as it is.
    readonly property color groove: dark ? "#2C2C2E" : "#EAEAEE"
    readonly property color chosen: dark ? "#48484A" : "#FFFFFF"
    readonly property color dialog: highContrast ? background : dark ? "#242426" : "#FAFAFC"
    readonly property color band: dark ? "#39393D" : "#E9E9EE"
    readonly property color field: highContrast ? background : dark ? "#1C1C1E" : "#E4E4E9"
    readonly property color hint: dark ? "#48484C" : "#3A3A3E"
    readonly property color hintText: "#FFFFFF"
    readonly property color shade: dark ? "#99000000" : "#66000000"
    readonly property color warning: highContrast ? background : dark ? "#3A2E14" : "#FFF4D6"
    readonly property color warningText: highContrast ? text : dark ? "#FFE2A0" : "#5C4300"

    readonly property real scale: Desktop.scale
    readonly property int body: Math.round(16 * scale)
    readonly property int small: Math.round(13 * scale)
    readonly property int rowHeight: Math.round(46 * scale)
    readonly property int barHeight: Math.round(48 * scale)
    readonly property int inset: 16
    readonly property int radius: 12
    readonly property int line: highContrast ? 2 : 1
    readonly property int widest: Math.round(640 * Math.sqrt(scale))
    readonly property int wide: 700  // a window of this width or more has a sidebar and popovers
    readonly property int slide: Desktop.reducedMotion ? 0 : 260
    readonly property int fade: Desktop.reducedMotion ? 0 : 140
    readonly property real dimmed: 0.55  // the least opacity of a text of a row that can't be used
    readonly property real faded: 0.85   // the opacity of a button that is pressed
    readonly property real unchosen: 0.65  // the least opacity of a picker's row
    readonly property real disabled: 0.5 // the opacity of a button that can't be used
    property bool broad: false           // the window is wide: rows have their control at the right

    readonly property FontMetrics strong: FontMetrics {
        font.family: Qt.application.font.family  // qmllint disable
        font.pixelSize: theme.small
        font.weight: Font.DemiBold
    }

    // A length that grows with the text.
    function unit(length: real): int {
        return Math.round(length * scale);
    }
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
    // The color on a card, or as little nearer to that of `end` as makes it stand out from `ground`.
    function apart(color: color, ground: color, end: color): color {
        let mixed = Qt.tint(card, color);
        for (let i = 0; i < 40 && contrast(mixed, ground) < controlGoal; ++i)
            mixed = Qt.tint(mixed, Qt.rgba(end.r, end.g, end.b, 0.08));
        return mixed;
    }
    function legible(color: color): color {
        return apart(color, card, text);
    }
    // The two grounds of a switch. A tint gives way where the page gave no ground for off; else that does.
    function switchOn(tint: color, off: color): color {
        return off.a > 0 ? given(tint, accent) : apart(given(tint, accent), switchOff, text);
    }
    function switchOffOf(tint: color, off: color): color {
        return off.a > 0 ? apart(off, Qt.tint(card, switchOn(tint, off)), "#000000") : switchOff;
    }
    // The knob on a ground of a switch.
    function knobOn(ground: color): color {
        return luminance(ground) > 0.3 && dark ? card : "#FFFFFF";
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
