import QtQuick

// The focus ring around an entry of a list of choices.
Item {
    id: highlight

    z: 2

    FocusRing {
        anchors.leftMargin: Theme.sideOf(highlight.width) + 2
        anchors.rightMargin: anchors.leftMargin
    }
}
