import QtQuick

// A patch of one colour; with a border where the page would swallow it. No patch for no colour.
Rectangle {
    property color outline: "transparent"

    visible: color.a > 0
    radius: 6
    border.width: outline.a > 0 || Theme.swallows(color) ? 1 : 0
    border.color: Theme.given(outline, Theme.separator)
}
