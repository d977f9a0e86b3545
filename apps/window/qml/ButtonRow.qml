import QtQuick

// Runs an action.
CardRow {
    id: card

    control: button
    pressed: button.down
    hovered: button.hovered
    contentHeight: Math.max(Theme.rowHeight, title.implicitHeight + 20)

    PressButton {
        id: button

        anchors.fill: parent
        focusPolicy: Qt.ClickFocus
        text: card.entry.label
        onClicked: card.page.tap(card.index)
        Accessible.description: card.description
        Accessible.focusable: true

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
}
