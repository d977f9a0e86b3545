pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// Segments of which one is chosen, below the label if there is one.
CardRow {
    id: card

    readonly property bool tinted: entry.tint.a > 0
    readonly property color chosenColor: Theme.given(entry.tint, Theme.chosen)
    // What stands on it; a dimmed row is too pale for any other color than that of text.
    readonly property color chosenText: tinted && entry.opacity === 1 ? Theme.textOn(chosenColor) : Theme.text
    readonly property bool titled: entry.label !== ""

    function move(direction: int) {
        const next = Math.max(0, Math.min(entry.titles.length - 1, entry.selected + direction));
        if (next !== entry.selected)
            page.choose(index, next);
    }

    control: bar
    contentHeight: (titled ? label.height + 10 : 0) + 10 + bar.height + 10

    Text {
        id: label

        x: Theme.inset
        y: 10
        width: parent.width - 2 * x
        visible: card.titled
        text: card.entry.label
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.body
    }

    Rectangle {
        id: bar

        x: Theme.inset
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 10
        width: parent.width - 2 * x
        height: 34
        radius: 9
        color: Theme.groove
        border.width: card.tinted ? 1 : 0
        border.color: Theme.legible(card.entry.tint)
        Keys.onLeftPressed: card.move(-1)
        Keys.onRightPressed: card.move(1)
        Accessible.role: Accessible.Grouping
        Accessible.name: card.entry.label
        Accessible.description: card.description
        Accessible.focusable: true

        Row {
            anchors.fill: parent
            anchors.margins: 2

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

                    width: (bar.width - 4) / Math.max(1, segments.count)
                    height: bar.height - 4
                    focusPolicy: Qt.NoFocus
                    autoExclusive: false
                    text: modelData
                    checked: chosen
                    onClicked: pick()
                    Accessible.name: text
                    Accessible.onPressAction: pick()
                    Accessible.onToggleAction: pick()

                    Rectangle {
                        anchors.fill: parent
                        radius: 7
                        visible: segment.chosen || segment.down
                        color: segment.chosen ? card.chosenColor : Theme.pressed
                        border.width: segment.chosen ? 1 : 0
                        border.color: card.tinted ? Theme.legible(card.entry.tint) : Theme.chosenEdge
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
