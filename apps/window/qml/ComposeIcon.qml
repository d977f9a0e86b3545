import QtQuick

// A pencil on a sheet.
Item {
    id: icon

    property color color: Theme.accentText
    property color ground: Theme.background

    implicitWidth: 24
    implicitHeight: 24
    scale: Theme.scale

    Rectangle {
        x: 1.5
        y: 5
        width: 17
        height: 17
        radius: 4
        color: "transparent"
        border.width: 2
        border.color: icon.color
        antialiasing: true
    }
    Rectangle {
        x: 14
        y: 1
        width: 10
        height: 10
        color: icon.ground
    }
    Item {
        x: 15.5
        y: 7
        rotation: 45

        Rectangle {
            x: -3.4
            y: -11
            width: 6.8
            height: 20
            color: icon.ground
            antialiasing: true
        }
        Rectangle {
            x: -1.6
            y: -10
            width: 3.2
            height: 3
            radius: 1
            antialiasing: true
            color: icon.color
        }
        Rectangle {
            x: -1.6
            y: -6
            width: 3.2
            height: 11
            antialiasing: true
            color: icon.color
        }
        Rectangle {
            x: -0.8
            y: 5
            width: 1.6
            height: 2.6
            radius: 0.8
            antialiasing: true
            color: icon.color
        }
    }
}
