import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A slider for one part of a color. It shows the color while it is dragged, and the page stores it
// when it is released. Arrow keys move it by 1; with Shift, and Page Up and Page Down, by 16.
T.Slider {
    id: slider

    required property partSlider shown
    required property PageModel page

    readonly property real minimumValue: from
    readonly property real maximumValue: to
    readonly property color tint: Theme.legible(Theme.given(shown.tint, Theme.accent))
    property bool syncing: false

    function sync() {
        syncing = true;
        from = shown.minimum;
        to = shown.maximum;
        if (!pressed)
            value = shown.value;
        syncing = false;
    }
    function endTracking() {
        page.drag(shown.tag, value, true);
        sync();
    }
    function step(by: real) {
        value = Math.max(from, Math.min(to, Math.floor(value) + by));
    }

    onShownChanged: sync()
    Component.onCompleted: sync()
    focusPolicy: Qt.ClickFocus
    Accessible.focusable: true
    stepSize: 1
    snapMode: T.Slider.SnapAlways
    live: true
    onMoved: if (pressed) page.drag(shown.tag, value, false)
    onPressedChanged: if (!pressed) endTracking()
    // Keys and assistive technology.
    onValueChanged: if (!pressed && !syncing && value !== shown.value) endTracking()
    Keys.onPressed: event => {
        const far = event.modifiers & Qt.ShiftModifier ? 16 : 1;
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_Left: step(-far); break;
        case Qt.Key_Right: step(far); break;
        case Qt.Key_PageDown: step(-16); break;
        case Qt.Key_PageUp: step(16); break;
        case Qt.Key_Home: step(-255); break;
        case Qt.Key_End: step(255); break;
        default: event.accepted = false;
        }
    }
    Accessible.onIncreaseAction: step(1)
    Accessible.onDecreaseAction: step(-1)

    background: Rectangle {
        x: Theme.unit(10)
        y: (slider.height - height) / 2
        width: slider.width - 2 * x
        height: 4
        radius: 2
        color: Theme.track

        Rectangle {
            width: slider.visualPosition * parent.width
            height: parent.height
            radius: 2
            color: slider.tint
        }
    }
    handle: Rectangle {
        x: slider.visualPosition * (slider.width - width)
        y: (slider.height - height) / 2
        width: Theme.unit(20)
        height: width
        radius: width / 2
        color: slider.pressed ? Qt.darker(slider.tint, 1.15) : slider.tint
        border.width: 1
        border.color: Theme.apart(slider.tint, slider.tint, Theme.text)
    }
    FocusRing {
        anchors.margins: -1
        of: slider
    }
}
