import QtQuick

// The background of a row: round at the first and the last row of its card, a line between rows.
Rectangle {
    id: face

    property bool first: false
    property bool last: false
    property bool pressed: false
    property bool hovered: false

    radius: first || last ? Theme.radius : 0
    color: pressed ? Theme.pressed : hovered ? Theme.hovered : Theme.card

    // Where one end is round, the other one isn't.
    Rectangle {
        y: face.first ? face.height - height : 0
        width: face.width
        height: Theme.radius
        visible: face.first !== face.last
        color: face.color
    }
    Rectangle {
        x: Theme.inset
        y: face.height - height
        width: face.width - x
        height: Theme.line
        visible: !face.last
        color: Theme.separator
    }
}
