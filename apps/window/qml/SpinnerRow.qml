import QtQuick

// An activity in progress.
CardRow {
    id: card

    Text {
        x: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        text: card.entry.label
        textFormat: Text.PlainText
        color: Theme.text
        font.pixelSize: Theme.body
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    BusyWheel {
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        turning: card.entry.built
        Accessible.name: card.entry.label
    }
}
