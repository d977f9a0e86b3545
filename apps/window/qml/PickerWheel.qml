pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// A wheel of choices, the chosen one in its middle. It turns by touch, by the mouse wheel, by the
// arrow keys, Page Up, Page Down, Home and End, by a click on a row, and by typing the beginning of a row.
FocusScope {
    id: wheel

    required property AlertModel alert
    readonly property int rowHeight: Theme.unit(34)
    readonly property string current: alert.choices[list.currentIndex] ?? ""

    // For assistive technology, which may set it.
    property int value: list.currentIndex
    readonly property int minimumValue: 0
    readonly property int maximumValue: Math.max(0, list.count - 1)
    readonly property int stepSize: 1

    // What is in the middle is chosen.
    function chooseMiddle() {
        if (list.moving)
            list.cancelFlick();
        alert.pick(list.currentIndex);
    }
    function go(row: int) {
        list.cancelFlick();
        list.currentIndex = Math.max(0, Math.min(list.count - 1, row));
        alert.pick(list.currentIndex);
    }
    function seek(letters: string) {
        const typed = search.typed + letters;
        // A longer search may stay where it is.
        const found = alert.find(typed, search.typed === "" ? list.currentIndex : list.currentIndex - 1);
        search.typed = typed;
        search.restart();
        if (found >= 0)
            go(found);
    }
    // What a key does; it is then the wheel that has the keyboard. False: nothing.
    function turn(event: KeyEvent): bool {
        switch (event.key) {
        case Qt.Key_Up: go(list.currentIndex - 1); break;
        case Qt.Key_Down: go(list.currentIndex + 1); break;
        case Qt.Key_Home: go(0); break;
        case Qt.Key_End: go(list.count - 1); break;
        case Qt.Key_PageUp: go(list.currentIndex - 5); break;
        case Qt.Key_PageDown: go(list.currentIndex + 5); break;
        default:
            const plain = event.text.length === 1 && event.text >= " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier));
            if (!plain || (event.text === " " && search.typed === ""))
                return false;
            seek(event.text);
        }
        forceActiveFocus(Qt.TabFocusReason);
        return true;
    }

    activeFocusOnTab: true
    onValueChanged: if (value !== list.currentIndex) {
        go(value);
        value = Qt.binding(() => list.currentIndex);
    }
    Keys.onPressed: event => event.accepted = turn(event)
    Accessible.role: Accessible.SpinBox
    Accessible.name: alert.message
    Accessible.description: current
    Accessible.focusable: true
    Accessible.onIncreaseAction: go(list.currentIndex + 1)
    Accessible.onDecreaseAction: go(list.currentIndex - 1)

    Timer {
        id: search

        property string typed

        interval: 1000
        onTriggered: typed = ""
    }

    Rectangle {
        y: (parent.height - height) / 2
        width: parent.width
        height: wheel.rowHeight
        radius: 8
        color: Theme.band
        border.width: wheel.activeFocus && KeyboardUse.active ? 2 : 0
        border.color: Theme.accentText
    }
    Text {
        anchors.centerIn: parent
        visible: list.count === 0
        text: qsTr("No entries")
        textFormat: Text.PlainText
        color: Theme.secondary
        font.pixelSize: Theme.body
        Accessible.ignored: true
    }

    ListView {
        id: list

        anchors.fill: parent
        clip: true
        interactive: count > 1
        model: wheel.alert.choices
        boundsBehavior: Flickable.DragOverBounds
        snapMode: ListView.SnapToItem
        highlightRangeMode: ListView.StrictlyEnforceRange
        preferredHighlightBegin: (height - wheel.rowHeight) / 2
        preferredHighlightEnd: preferredHighlightBegin + wheel.rowHeight
        highlightMoveDuration: 120
        highlightMoveVelocity: -1
        keyNavigationEnabled: false
        currentIndex: wheel.alert.chosen
        onMovementEnded: wheel.chooseMiddle()
        Component.onCompleted: {
            currentIndex = wheel.alert.chosen;
            positionViewAtIndex(currentIndex, ListView.SnapPosition);
        }

        delegate: Text {
            id: row

            required property int index
            required property string modelData
            // Rows from the middle, now.
            readonly property real away: Math.abs(y + height / 2 - list.contentY - list.height / 2) / height

            width: list.width
            height: wheel.rowHeight
            leftPadding: 8
            rightPadding: 8
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: modelData
            textFormat: Text.PlainText
            elide: Text.ElideRight
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Math.max(11, Math.round(Theme.body * 0.5))
            color: Theme.text
            opacity: Math.max(Theme.unchosen, 1 - 0.36 * away)
            scale: Math.max(0.75, 1 - 0.07 * away)
            font.pixelSize: Theme.body
            Accessible.ignored: true

            TapHandler {
                onTapped: {
                    wheel.forceActiveFocus(Qt.MouseFocusReason);
                    wheel.go(row.index);
                }
            }
        }
    }

    Connections {
        target: wheel.alert

        function onChosenChanged() {
            if (!list.moving && list.currentIndex !== wheel.alert.chosen)
                list.currentIndex = wheel.alert.chosen;
        }
    }
    MouseArea {
        property real turned: 0

        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        onWheel: event => {
            turned += event.angleDelta.y;
            const steps = Math.trunc(turned / 120);
            turned -= steps * 120;
            if (steps !== 0)
                wheel.go(list.currentIndex - steps);
        }
    }
}
