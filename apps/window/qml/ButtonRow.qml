import QtQuick

// Runs an action.
PressRow {
    id: card

    contentHeight: Math.max(Theme.rowHeight, title.implicitHeight + 20)

    Text {
        id: title

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        text: card.entry.label
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: !card.entry.usable ? Theme.text : card.entry.destructive ? Theme.destructive : Theme.accentText
        font.pixelSize: Theme.body
    }
}
