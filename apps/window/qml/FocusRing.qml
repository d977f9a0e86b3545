import QtQuick

// Shows where the keyboard is.
Rectangle {
    anchors.fill: parent
    anchors.margins: 2
    radius: Theme.radius - 2
    color: "transparent"
    border.width: 2
    border.color: Theme.accentText
}
