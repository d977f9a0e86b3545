import QtQuick

// How an entry of a list looks: its title on the card, and at its right room for a mark.
CardFace {
    id: face

    property string title
    property real room: 0

    implicitHeight: Math.max(Theme.rowHeight, name.implicitHeight + 20)

    Text {
        id: name

        anchors.left: parent.left
        anchors.leftMargin: Theme.inset
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset + face.room
        anchors.verticalCenter: parent.verticalCenter
        text: face.title
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        color: Theme.text
        font.pixelSize: Theme.body
    }
}
