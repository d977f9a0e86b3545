import QtQuick

// The ground of what lies over the pages. Where it is as dark as they are it has an edge.
Rectangle {
    radius: Theme.radius + 2
    color: Theme.dialog
    border.width: Theme.dark || Theme.highContrast ? Theme.line : 0
    border.color: Theme.separator
}
