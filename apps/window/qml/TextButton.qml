import QtQuick

// A button that is a word or two.
PressButton {
    id: button

    property bool destructive: false
    property bool strong: false

    implicitWidth: implicitContentWidth + 24
    implicitHeight: Theme.rowHeight - 4
    opacity: down ? Theme.faded : enabled ? 1 : Theme.disabled

    contentItem: Text {
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: button.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Math.round(Theme.body * 0.6)
        color: button.destructive ? Theme.destructive : Theme.accentText
        font.pixelSize: Theme.body
        font.weight: button.strong ? Font.DemiBold : Font.Normal
    }
    FocusRing {
        of: button
    }
}
