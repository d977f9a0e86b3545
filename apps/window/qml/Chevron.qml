import QtQuick

// A small angle that points to where a tap leads.
Item {
    id: chevron

    property color color: Theme.edge
    property bool back: false
    property real arm: Theme.unit(9)
    property real thickness: 2 * Theme.scale

    implicitWidth: arm
    implicitHeight: 1.6 * arm
    rotation: back ? 180 : 0

    Rectangle {
        x: (chevron.width - width) / 2
        y: chevron.height / 2 - 0.35 * chevron.arm - height / 2
        width: chevron.arm
        height: chevron.thickness
        radius: height / 2
        rotation: 45
        antialiasing: true
        color: chevron.color
    }
    Rectangle {
        x: (chevron.width - width) / 2
        y: chevron.height / 2 + 0.35 * chevron.arm - height / 2
        width: chevron.arm
        height: chevron.thickness
        radius: height / 2
        rotation: -45
        antialiasing: true
        color: chevron.color
    }
}
