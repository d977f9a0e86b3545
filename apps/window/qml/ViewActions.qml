import QtQuick

// The bottom of a view over the pages: what can be done there, below a line.
Item {
    width: parent.width
    height: visible ? Theme.rowHeight + 12 : 0

    Rectangle {
        width: parent.width
        height: Theme.line
        color: Theme.separator
    }
}
