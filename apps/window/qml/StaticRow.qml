import QtQuick

// Plain text; tall and centered for a giant row.
CardRow {
    id: card

    required property string kind
    readonly property bool giant: kind === "giant"

    contentHeight: Math.max(giant ? 2 * Theme.rowHeight : Theme.rowHeight, words.implicitHeight + 24)

    Text {
        id: words

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: card.giant ? Text.AlignHCenter : Text.AlignLeft
        text: card.entry.label
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: card.giant ? Math.round(Theme.body * 1.5) : Theme.body
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
