import QtQuick

// The background of a row: round at the first and the last row of its card, a line between rows.
Item {
    id: face

    property bool first: false
    property bool last: false
    property bool pressed: false
    property bool hovered: false
    readonly property color ground: pressed ? Theme.pressed : hovered ? Theme.hovered : Theme.card

    Rectangle {
        anchors.fill: parent
        radius: face.first || face.last ? Theme.radius : 0
        color: face.ground
    }
    Rectangle {
        width: parent.width
        height: Theme.radius
        visible: face.last && !face.first
        color: face.ground
    }
    Rectangle {
        width: parent.width
        height: Theme.radius
        anchors.bottom: parent.bottom
        visible: face.first && !face.last
        color: face.ground
    }
    Rectangle {
        x: Theme.inset
        width: parent.width - x
        height: Theme.line
        anchors.bottom: parent.bottom
        visible: !face.last
        color: Theme.separator
    }
}
