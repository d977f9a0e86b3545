import QtQuick

// Leads to the page where a color is chosen, and shows it or the word that stands for it.
PressRow {
    id: card

    contentHeight: Math.max(Theme.rowHeight, texts.implicitHeight + 20)

    LabelledValue {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: Theme.inset
        anchors.right: swatch.visible ? swatch.left : chevron.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        label: card.entry.label
        value: card.entry.value
        valueColor: card.faint
    }
    ColorSwatch {
        id: swatch

        anchors.right: chevron.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.unit(24)
        height: width
        color: card.entry.swatch
        outline: card.entry.border
    }
    Chevron {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: Theme.inset - 2
        anchors.verticalCenter: parent.verticalCenter
    }
}
