import QtQuick

// Leads to another page, and shows what is chosen there.
PressRow {
    id: card

    contentHeight: Math.max(Theme.rowHeight, texts.implicitHeight + 20)

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
