import QtQuick

// Leads to another page, and shows what is chosen there.
CardRow {
    id: card

    control: button
    pressed: button.down
    hovered: button.hovered
    contentHeight: Math.max(Theme.rowHeight, texts.implicitHeight + 20)

    PressButton {
        id: button

        anchors.fill: parent
        focusPolicy: Qt.ClickFocus
        text: card.entry.label
        onClicked: card.page.tap(card.index)
        Accessible.description: card.description
        Accessible.focusable: true

        LabelledValue {
            id: texts

            anchors.left: parent.left
            anchors.leftMargin: Theme.inset
            anchors.right: mark.left
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            label: card.entry.label
            value: card.entry.value
            valueColor: card.faint
        }
        Item {
            id: mark

            anchors.right: parent.right
            anchors.rightMargin: Theme.inset - 2
            anchors.verticalCenter: parent.verticalCenter
            width: card.entry.opens ? chevron.width : card.entry.ticked ? tick.width : 0
            height: chevron.height

            Chevron {
                id: chevron
                visible: card.entry.opens
            }
            Tick {
                id: tick
                visible: card.entry.ticked
            }
        }
    }
}
