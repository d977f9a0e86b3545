import QtQuick

// A row that is one button: pressed, it does what its page does for it. What it shows stands on the
// button.
CardRow {
    id: card

    default property alias shown: button.data

    control: button
    pressed: button.down
    hovered: button.hovered

    PressButton {
        id: button

        anchors.fill: parent
        focusPolicy: Qt.ClickFocus
        text: card.entry.label
        onClicked: card.page.tap(card.index)
        Accessible.description: card.description
        Accessible.focusable: true
    }
}
