import QtQuick

// A patch of one color, with a border where it could not be seen on a card. No patch for no color.
Rectangle {
    property color outline: "transparent"

    visible: color.a > 0
    radius: 6
    border.width: outline.a > 0 || Theme.contrastOnCard(color) < 1.25 ? 1 : 0
    border.color: Theme.given(outline, Theme.separator)
}
