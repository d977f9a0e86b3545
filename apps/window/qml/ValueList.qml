pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// Values of a profile, or what differs, on a card.
Column {
    id: list

    property string heading
    property string empty  // what stands in place of no differences
    readonly property bool differs: empty !== ""  // they are differences
    property string footer
    property var values: []  // of profileValue

    function orEmpty(text: string): string {
        return text === "" ? qsTr("empty") : text;
    }

    Text {
        x: Theme.sideOf(parent.width) + Theme.inset
        height: Theme.rowHeight
        verticalAlignment: Text.AlignBottom
        bottomPadding: 8
        text: list.heading
        textFormat: Text.PlainText
        color: Theme.secondary
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    EntryRow {
        width: parent.width
        visible: list.differs && list.values.length === 0
        leads: false
        label: list.empty
    }
    Repeater {
        model: EntryModel {
            key: "label"
            entries: list.values
        }

        EntryRow {
            required property int index
            required property profileValue entry

            width: list.width
            leads: false
            label: entry.label
            value: list.differs ? "" : entry.to
            detail: !list.differs ? "" : list.orEmpty(entry.from) + " → " + list.orEmpty(entry.to)
            first: index === 0
            last: index === list.values.length - 1
        }
    }
    Text {
        x: Theme.sideOf(parent.width) + Theme.inset
        width: parent.width - 2 * x
        topPadding: 8
        visible: text !== ""
        text: list.footer
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondary
        font.pixelSize: Theme.small
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
