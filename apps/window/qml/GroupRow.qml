import QtQuick
import Quorvantis.Settings

// The header of a group, and its footer when it has no rows.
KeyRow {
    id: group

    required property row entry
    required property PageModel page
    readonly property real side: Theme.sideOf(width) + Theme.inset
    readonly property real gap: index === 0 ? 20 : 26

    height: gap + (header.visible ? header.height + 8 : 0) + (footer.visible ? footer.height : 0)

    Text {
        id: header

        x: group.side
        y: group.gap
        width: group.width - 2 * x
        visible: text !== ""
        text: group.entry.label
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondary
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
        Accessible.ignored: !visible
    }
    Text {
        id: footer

        x: group.side
        anchors.bottom: parent.bottom
        width: group.width - 2 * x
        visible: text !== ""
        text: group.entry.footer
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondary
        font.pixelSize: Theme.small
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: !visible
    }
}
