import QtQuick
import Quorvantis.Settings

// The setting whose color is being chosen, as it is now.
Rectangle {
    id: strip

    required property row shown
    property bool raised: false

    implicitHeight: Math.max(Theme.barHeight + 12, words.implicitHeight + 16)
    color: Theme.background
    Accessible.role: Accessible.StaticText
    Accessible.name: shown.label
    Accessible.description: shown.spoken

    ColorSwatch {
        id: patch

        x: Theme.sideOf(parent.width)
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.unit(76)
        height: Theme.unit(40)
        radius: Theme.radius
        color: strip.shown.swatch
        outline: Theme.separator
    }
    Column {
        id: words

        x: patch.visible ? patch.x + patch.width + 14 : Theme.sideOf(parent.width) + Theme.inset
        width: parent.width - x - Theme.sideOf(parent.width)
        anchors.verticalCenter: parent.verticalCenter

        Text {
            width: parent.width
            text: strip.shown.label
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondary
            font.pixelSize: Theme.small
        }
        Text {
            width: parent.width
            text: strip.shown.spoken
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.body
        }
    }
    Rectangle {
        width: parent.width
        height: 1
        anchors.bottom: parent.bottom
        visible: strip.raised
        color: Theme.separator
    }
}
