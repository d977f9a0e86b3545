import QtQuick

// A button that is a word or two.
PressButton {
    id: button

    property bool destructive: false
    property bool strong: false

    implicitWidth: implicitContentWidth + 24
    implicitHeight: Theme.rowHeight - 4
    opacity: down ? 0.4 : enabled ? 1 : 0.5

    contentItem: Text {
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: button.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: button.destructive ? Theme.destructive : Theme.accentText
        font.pixelSize: Theme.body
        font.weight: button.strong ? Font.DemiBold : Font.Normal
    }
    FocusRing {
        of: button
    }
}
