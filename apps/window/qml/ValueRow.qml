import QtQuick

// A label and a value that can't be changed here. The keyboard leads to it where it says why.
CardRow {
    id: card

    control: texts
    contentHeight: Math.max(Theme.rowHeight, texts.implicitHeight + 20)

    LabelledValue {
        id: texts

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        label: card.entry.label
        value: card.entry.value
        Accessible.role: Accessible.StaticText
        Accessible.name: label
        Accessible.description: value
    }
}
