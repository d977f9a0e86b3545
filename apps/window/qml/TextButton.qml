import QtQuick
import QtQuick.Templates as T

// A button that is a word or two.
T.AbstractButton {
    id: button

    property bool destructive: false
    property bool strong: false

    implicitWidth: implicitContentWidth + 24
    implicitHeight: Theme.rowHeight - 4
    focusPolicy: Qt.StrongFocus
    opacity: down ? 0.4 : enabled ? 1 : 0.5
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.name: text
    Accessible.onPressAction: clicked()

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
