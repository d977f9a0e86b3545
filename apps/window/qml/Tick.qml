pragma ComponentBehavior: Bound

import QtQuick

// The mark of the chosen entry.
Item {
    id: tick

    property color color: Theme.accentText

    implicitWidth: Theme.unit(18)
    implicitHeight: Theme.unit(16)

    component Stroke: Rectangle {
        height: 2.2 * Theme.scale
        radius: height / 2
        antialiasing: true
        color: tick.color
    }

    Stroke {
        x: 0.5 * Theme.scale
        y: 9 * Theme.scale
        width: 7 * Theme.scale
        rotation: 45
    }
    Stroke {
        x: 3.6 * Theme.scale
        y: 6.8 * Theme.scale
        width: 14 * Theme.scale
        rotation: -50
    }
}
