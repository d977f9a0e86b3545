import QtQuick
import QtQuick.Templates as T

// A slider, below its label and value if it has them, or between the two in a wide window. A click
// on the value, or a digit while the slider has the keyboard, lets the value be typed.
CardRow {
    id: card

    readonly property color trackColor: Theme.legible(Theme.given(entry.tint, Theme.accent))
    readonly property bool titled: entry.label !== "" || entry.value !== ""
    readonly property real range: entry.maximum - entry.minimum
    readonly property bool beside: Theme.broad && titled && width - 2 * side >= Theme.unit(420)
    // What an arrow key moves the slider by; a drag too, where the value is shown.
    readonly property bool snaps: entry.stops > 0 || entry.value !== ""
    readonly property real step: entry.stops > 0 ? range / entry.stops : entry.value === "" ? range / 20 : range >= 20 ? 1 : range >= 2 ? 0.1 : 0.01
    readonly property int far: Math.max(2, Math.min(10, Math.round(range / step / 10)))  // steps, with Shift

    onEntryChanged: slider.sync()
    control: slider
    contentHeight: titled && !beside ? texts.implicitHeight + 12 + Theme.unit(40) : Theme.rowHeight

    LabelledValue {
        id: texts

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.inset
        y: card.beside ? (parent.height - height) / 2 : 12
        visible: card.titled
        valueColor: card.faint
        label: card.entry.label
        room: number.activeFocus ? Qt.size(number.width, number.height) : Qt.size(0, 0)
        value: slider.pressed && card.entry.value !== "" ? card.entry.numberText(slider.value) : card.entry.value
    }

    NumberField {
        id: number

        anchors.right: parent.right
        anchors.rightMargin: Theme.inset - rightPadding
        y: texts.y + (texts.below ? texts.valueCenter : texts.height / 2) - height / 2
        visible: card.entry.value !== ""
        owner: card
        shown: card.entry.value
        Accessible.name: qsTr("%1, as a number").arg(card.entry.label)
        Accessible.description: card.entry.reason
        onDone: slider.forceActiveFocus(Qt.TabFocusReason)
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
        // Shows again what the page says: it may have refused.
        function commit() {
            if (value !== card.entry.number)
                card.page.setNumber(card.index, value);
            sync();
        }
        function step(steps: int) {
            value = Math.max(from, Math.min(to, value + steps * card.step));
        }

        x: card.beside ? parent.width * 0.42 : Theme.inset - 2
        width: card.beside ? parent.width * 0.58 - Theme.inset - Theme.unit(52) : parent.width - 2 * x
        anchors.bottom: parent.bottom
        height: card.titled && !card.beside ? Theme.unit(40) : parent.height
        focusPolicy: Qt.ClickFocus
        stepSize: card.step
        snapMode: card.snaps ? T.Slider.SnapAlways : T.Slider.NoSnap
        live: true
        onMoved: if (card.entry.continuous) card.page.setNumber(card.index, value, pressed)
        onPressedChanged: if (!pressed) {
            commit();
            card.page.release();
        }
        onValueChanged: if (!pressed && !syncing) commit()
        Component.onCompleted: sync()
        Keys.onReturnPressed: number.edit("")
        Keys.onEnterPressed: number.edit("")
        Keys.onPressed: event => {
            const steps = event.modifiers & Qt.ShiftModifier ? card.far : 1;
            event.accepted = !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier));
            switch (event.accepted ? event.key : 0) {
            case Qt.Key_Left: step(-steps); break;
            case Qt.Key_Right: step(steps); break;
            case Qt.Key_Home: value = from; break;
            case Qt.Key_End: value = to; break;
            case Qt.Key_PageUp: step(2 * card.far); break;
            case Qt.Key_PageDown: step(-2 * card.far); break;
            default:
                event.accepted = number.takes(event);
                if (event.accepted)
                    number.edit(event.text);
            }
        }
        Accessible.name: card.entry.label
        Accessible.description: card.description
        Accessible.focusable: true
        Accessible.onIncreaseAction: step(1)
        Accessible.onDecreaseAction: step(-1)

        background: Item {
            x: 2
            y: (slider.height - height) / 2
            width: slider.width - 4
            height: Theme.unit(4)

            // Neither lies below the handle, which may be translucent.
            Rectangle {
                width: Math.max(0, slider.handle.x - 1)
                height: parent.height
                radius: height / 2
                color: card.trackColor
            }
            Rectangle {
                x: Math.min(parent.width, slider.handle.x + slider.handle.width - 3)
                width: parent.width - x
                height: parent.height
                radius: height / 2
                color: Theme.track
            }
        }
        handle: Rectangle {
            x: slider.visualPosition * (slider.width - width)
            y: (slider.height - height) / 2
            width: Theme.unit(24)
            height: width
            radius: width / 2
            color: slider.pressed ? Theme.pressed : slider.hovered ? Theme.hovered : Theme.knob
            border.width: Theme.line
            border.color: Theme.edge
        }
    }
}
