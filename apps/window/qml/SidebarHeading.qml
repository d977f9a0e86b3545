import QtQuick
import Quorvantis.Settings

// The header of a group of the sidebar.
Text {
    required property int index
    required property row entry

    x: Theme.inset + 4
    width: ListView.view ? ListView.view.width - 2 * x : 0
    topPadding: index === 0 ? 10 : 16
    bottomPadding: 6
    text: entry.label
    textFormat: Text.PlainText
    elide: Text.ElideRight
    color: Theme.secondary
    font.pixelSize: Theme.small
    font.weight: Font.DemiBold
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
