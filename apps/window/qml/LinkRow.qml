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
            anchors.right: parent.right
            anchors.rightMargin: Theme.inset + 8 + (card.entry.opens ? chevron.width : tick.width)
            anchors.verticalCenter: parent.verticalCenter
            label: card.entry.label
            value: card.entry.value
            valueColor: card.faint
        }
        Chevron {
            id: chevron

            anchors.right: parent.right
            anchors.rightMargin: Theme.inset - 2
            anchors.verticalCenter: parent.verticalCenter
            visible: card.entry.opens
        }
        Loader {
            id: tick

            anchors.right: parent.right
            anchors.rightMargin: Theme.inset - 2
            anchors.verticalCenter: parent.verticalCenter
            source: card.entry.ticked && !card.entry.opens ? "Tick.qml" : ""
        }
    }
}
