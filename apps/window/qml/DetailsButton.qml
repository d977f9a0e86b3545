import QtQuick

// Opens what a row stands for.
BarButton {
    Rectangle {
        anchors.centerIn: parent
        width: Theme.unit(22)
        height: width
        radius: width / 2
        color: "transparent"
        border.width: 1.6 * Theme.scale
        border.color: Theme.accentText

        Text {
            anchors.centerIn: parent
            text: "i"
            textFormat: Text.PlainText
            color: Theme.accentText
            font.pixelSize: Theme.small
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
    }
}
