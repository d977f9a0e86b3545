pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// An alert in the middle of the window, with its picker if it has one.
AlertBase {
    id: popup

    readonly property bool sideBySide: alert.buttons.length === 2
    readonly property real heightForWheel: parent ? parent.height - 24 - texts.implicitHeight - buttons.implicitHeight : 0

    width: Math.min(parent ? parent.width - 40 : 0, Theme.unit(300))
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - implicitHeight) / 2) : 0
    opacity: shown
    scale: 1.08 - 0.08 * shown

    background: Rectangle {
        radius: Theme.radius + 2
        color: Theme.dialog
        border.width: Theme.dark ? 1 : 0
        border.color: Theme.separator
    }

    contentItem: FocusScope { // qmllint disable deferred-property-id
        id: frame

        function step(key: int): bool {
            const by = { [Qt.Key_Left]: -1, [Qt.Key_Up]: -1, [Qt.Key_Right]: 1, [Qt.Key_Down]: 1 }[key];
            if (by !== undefined)
                (Window.activeFocusItem ?? frame).nextItemInFocusChain(by > 0).forceActiveFocus(Qt.TabFocusReason);
            return by !== undefined;
        }

        implicitHeight: column.implicitHeight
        focus: true
        Keys.onReturnPressed: popup.confirm()
        Keys.onEnterPressed: popup.confirm()
        // What turns the wheel does so from the buttons too.
        Keys.onPressed: event => event.accepted = popup.alert.picks ? wheel.turn(event) : step(event.key)
        Keys.onEscapePressed: popup.alert.cancel()
        Keys.onBackPressed: popup.alert.cancel()
        Accessible.role: Accessible.Dialog
        Accessible.name: popup.alert.title
        Accessible.description: popup.description

        Column {
            id: column

            width: parent.width

            AlertText {
                id: texts
                width: parent.width
                alert: popup.alert
            }
            PickerWheel {
                id: wheel

                x: Theme.inset
                width: parent.width - 2 * x
                height: rowHeight * Math.max(1, Math.min(5, Math.floor((popup.heightForWheel - 14) / rowHeight)))
                visible: popup.alert.picks
                alert: popup.alert
            }
            Item {
                width: 1
                height: 14
                visible: wheel.visible
            }
            Flow {
                id: buttons

                width: parent.width

                Repeater {
                    model: popup.alert.buttons

                    AlertButtonView {
                        required property int index
                        required property alertButton modelData

                        width: popup.sideBySide ? buttons.width / 2 : buttons.width
                        shown: modelData
                        focus: index === popup.alert.firstButton
                        bar: popup.sideBySide && index === 1
                        onClicked: popup.press(index)
                    }
                }
            }
        }
    }

    // A wheel that still turns stops where it is.
    function press(button: int) {
        wheel.chooseMiddle();
        alert.press(button);
    }
    function confirm() {
        wheel.chooseMiddle();
        alert.pressPreferred();
    }
}
