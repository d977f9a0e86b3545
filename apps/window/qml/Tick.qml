import QtQuick

// The mark of the chosen entry.
Item {
    id: tick

    property color color: Theme.accentText

    implicitWidth: 18
    implicitHeight: 16

    Rectangle {
        x: 0.5
        y: 9
        width: 7
        height: 2.2
        radius: 1
        rotation: 45
        antialiasing: true
        color: tick.color
    }
    Rectangle {
        x: 3.6
        y: 6.8
        width: 14
        height: 2.2
        radius: 1
        rotation: -50
        antialiasing: true
        color: tick.color
    }
}
