import QtQuick
import QtQuick.Templates as T

// A list over the pages. All its entries are made, so that the keyboard and assistive technology
// find those that are off screen.
ListView {
    id: list

    property string heading

    clip: true
    focus: true
    cacheBuffer: 100000
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    bottomMargin: 16
    T.ScrollBar.vertical: SlimScrollBar {}
    Keys.forwardTo: [keys]
    Accessible.role: Accessible.List
    Accessible.name: heading

    KeyScroll {
        id: keys
        of: list
    }
}
