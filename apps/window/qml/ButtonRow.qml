import QtQuick
import QtQuick.Templates as T

// Runs an action.
CardRow {
    id: card

    control: button
    pressed: button.down
    hovered: button.hovered
    contentHeight: Math.max(Theme.rowHeight, title.implicitHeight + 20)

    T.AbstractButton {
        id: button

        anchors.fill: parent
        focusPolicy: Qt.ClickFocus
        text: card.entry.label
        onClicked: card.page.tap(card.index)
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()
        Accessible.name: text
        Accessible.description: card.description
        Accessible.focusable: true
        Accessible.onPressAction: clicked()

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
