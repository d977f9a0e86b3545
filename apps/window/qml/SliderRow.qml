import QtQuick
import QtQuick.Templates as T

// A slider, below its label and value if it has them.
CardRow {
    id: card

    readonly property color trackColor: Theme.given(entry.tint, Theme.dark ? Theme.accentText : Theme.accent)
    readonly property bool titled: entry.label !== "" || entry.value !== ""

    onEntryChanged: slider.sync()
    control: slider
    ring: slider.visualFocus
    contentHeight: titled ? texts.implicitHeight + 12 + 40 : Theme.rowHeight

    LabelledValue {
        id: texts

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.inset
        y: 12
        visible: card.titled
        label: card.entry.label
        value: card.entry.value
    }

    T.Slider {
        id: slider

        readonly property real minimumValue: from
        readonly property real maximumValue: to

        property bool syncing: false

        // Range before value, which would be brought into the range that was.
        function sync() {
            syncing = true;
            from = card.entry.minimum;
            to = card.entry.maximum;
            if (!pressed)
                value = card.entry.number;
            syncing = false;
        }
        // The page has the last word on what the slider shows.
        function commit() {
            if (value !== card.entry.number)
                card.page.setNumber(card.index, value);
            sync();
        }
        function step(direction: int) {
            value = Math.max(from, Math.min(to, value + direction * card.entry.step));
        }

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.inset - 2
        anchors.rightMargin: Theme.inset - 2
        anchors.bottom: parent.bottom
        height: card.titled ? 40 : parent.height
        focusPolicy: Qt.StrongFocus
        visible: card.entry.built
        stepSize: card.entry.stops > 0 ? card.entry.step : 0
        snapMode: card.entry.stops > 0 ? T.Slider.SnapAlways : T.Slider.NoSnap
        live: true
        onMoved: if (card.entry.continuous) card.page.setNumber(card.index, value)
        onPressedChanged: if (!pressed) commit()
        onValueChanged: if (!pressed && !syncing) commit()
        Component.onCompleted: sync()
        Keys.onLeftPressed: step(-1)
        Keys.onRightPressed: step(1)
        Accessible.name: card.entry.label
        Accessible.description: card.description
        Accessible.onIncreaseAction: step(1)
        Accessible.onDecreaseAction: step(-1)

        background: Rectangle {
            x: 2
            y: (slider.height - height) / 2
            width: slider.width - 4
            height: 4
            radius: 2
            color: Theme.track

            Rectangle {
                width: slider.handle.x + slider.handle.width / 2
                height: parent.height
                radius: 2
                color: card.trackColor
            }
        }
        handle: Rectangle {
            x: slider.visualPosition * (slider.width - width)
            y: (slider.height - height) / 2
            width: 26
            height: 26
            radius: 13
            color: slider.pressed ? "#F2F2F4" : "#FFFFFF"
            border.width: 1
            border.color: Theme.dark ? "#00000000" : "#CFCFD4"
        }
    }
}
