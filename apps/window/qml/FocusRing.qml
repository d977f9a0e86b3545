import QtQuick
import Quorvantis.Settings

// Shows that this item has the keyboard, to a user who works with it.
Rectangle {
    property Item of: null

    anchors.fill: parent
    anchors.margins: 2
    radius: Theme.radius - 2
    visible: of !== null && of.activeFocus && KeyboardUse.active
    color: "transparent"
    border.width: 2
    border.color: Theme.accentText
}
