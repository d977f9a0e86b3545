pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// Segments of which one is chosen, below the label or, in a wide window, at its right; one below the
// other where they don't fit side by side.
CardRow {
    id: card

    readonly property bool tinted: entry.tint.a > 0
    readonly property bool strong: tinted || entry.changed  // else all stays as it is
    readonly property color chosenColor: Theme.given(entry.tint, entry.changed ? Theme.accent : Theme.chosen)
    // What stands on it; a dimmed row is too pale for any other color than that of text.
    readonly property color chosenText: strong && entry.usable ? Theme.textOn(chosenColor) : Theme.text
    readonly property bool titled: entry.label !== ""
    readonly property int count: entry.titles.length
    readonly property real natural: widest(Theme.small) * count
    readonly property real labelWidth: Math.ceil(labelSize.advanceWidth) + 1
    readonly property bool beside: Theme.broad && titled && labelWidth + natural + 3 * Theme.inset <= width - 2 * side
    readonly property bool stacked: !beside && natural > width - 2 * side - 2 * Theme.inset

    // Of a segment.
    function widest(pixels: int): real {
        let found = pixels * 5.2;
        for (let i = 0; i < entry.titles.length; ++i)
            found = Math.max(found, Theme.strong.advanceWidth(entry.titles[i]) + Theme.unit(20));
        return found;
    }
    function move(direction: int) {
        const next = Math.max(0, Math.min(entry.titles.length - 1, entry.selected + direction));
        if (next !== entry.selected)
            page.choose(index, next);
    }

    control: bar
    contentHeight: beside ? Math.max(Theme.rowHeight, bar.height + 12) : (titled ? label.height + 10 : 0) + 10 + bar.height + 10

    TextMetrics {
        id: labelSize
        text: card.entry.label
        font: label.font
    }
    Text {
        id: label

        x: Theme.inset
        y: card.beside ? (parent.height - height) / 2 : 10
        width: card.beside ? card.labelWidth : parent.width - 2 * x
        visible: card.titled
        text: card.entry.label
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.body
    }

    Rectangle {
        id: bar

        x: parent.width - width - Theme.inset
        y: card.beside ? (parent.height - height) / 2 : parent.height - height - 10
        width: card.beside ? card.natural : parent.width - 2 * Theme.inset
        height: (card.stacked ? card.count : 1) * Theme.unit(32)
        radius: 9
        color: Theme.groove
        border.width: Theme.line
        border.color: card.tinted ? Theme.legible(card.entry.tint) : Theme.edge
        Keys.onLeftPressed: card.move(-1)
        Keys.onRightPressed: card.move(1)
        Accessible.role: Accessible.Grouping
        Accessible.name: card.entry.label
        Accessible.description: card.description
        Accessible.focusable: true

        Grid {
            anchors.fill: parent
            columns: card.stacked ? 1 : Math.max(1, card.count)

            Repeater {
                id: segments

                model: card.entry.titles

                T.RadioButton {
                    id: segment

                    required property int index
                    required property string modelData
                    readonly property bool chosen: index === card.entry.selected

                    function pick() {
                        if (!chosen)
                            card.page.choose(card.index, index);
                        checked = Qt.binding(() => chosen);
                    }

                    width: card.stacked ? bar.width : bar.width / Math.max(1, card.count)
                    height: bar.height / (card.stacked ? Math.max(1, card.count) : 1)
                    focusPolicy: Qt.NoFocus
                    autoExclusive: false
                    text: modelData
                    checked: chosen
                    onClicked: pick()
                    Accessible.name: text
                    Accessible.onPressAction: pick()
                    Accessible.onToggleAction: pick()

                    Rectangle {
                        readonly property real inside: segment.chosen ? 0 : bar.border.width  // of the bar's frame

                        anchors.fill: parent
                        anchors.margins: inside
                        radius: bar.radius - inside
                        visible: segment.chosen || segment.down || segment.hovered
                        color: segment.chosen ? card.chosenColor : segment.down ? Theme.pressed : Theme.hovered
                        border.width: segment.chosen ? Theme.line : 0
                        border.color: card.strong ? Theme.legible(card.chosenColor) : Theme.edge
                    }
                    Text {
                        anchors.fill: parent
                        anchors.margins: 4
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        text: segment.text
                        textFormat: Text.PlainText
                        elide: Text.ElideRight
                        fontSizeMode: Text.HorizontalFit
                        minimumPixelSize: Math.round(Theme.small * 0.8)
                        color: segment.chosen ? card.chosenText : Theme.text
                        font.pixelSize: Theme.small
                        font.weight: segment.chosen ? Font.DemiBold : Font.Normal
                    }
                }
            }
        }
    }
}
