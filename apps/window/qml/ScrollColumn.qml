import QtQuick
import QtQuick.Templates as T

// One thing below the other; scrolls where they are taller than their place.
Flickable {
    id: scroll

    default property alias content: column.data
    property alias spacing: column.spacing
    property bool keyed: true  // the arrows work in it
    readonly property bool hints: true  // it says itself what is cut off in it

    implicitHeight: column.implicitHeight
    contentHeight: column.implicitHeight
    clip: interactive
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: SlimScrollBar {}
    Keys.forwardTo: keyed ? [keys] : []

    Column {
        id: column
        width: scroll.width
    }
    KeyScroll {
        id: keys
        of: scroll
    }
    TruncatedHint {}
}
