pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// An alert in the middle of the window, with its picker if it has one.
AlertBase {
    id: popup

    readonly property bool sideBySide: alert.buttons.length === 2
    readonly property real heightForWheel: parent ? parent.height - top - 24 - texts.implicitHeight - buttons.implicitHeight : 0

    width: Math.min(parent ? parent.width - 40 : 0, Theme.unit(300))
    opacity: shown
    scale: 1.08 - 0.08 * shown

    contentItem: AlertFrame { // qmllint disable deferred-property-id
        of: popup
        wheel: popup.alert.picks ? turning : null
        Keys.onReturnPressed: popup.confirm()
        Keys.onEnterPressed: popup.confirm()

        AlertText {
            id: texts
            width: parent.width
            alert: popup.alert
        }
        PickerWheel {
            id: turning

            x: Theme.inset
            width: parent.width - 2 * x
            height: rowHeight * Math.max(1, Math.min(5, Math.floor((popup.heightForWheel - 14) / rowHeight)))
            visible: popup.alert.picks
            alert: popup.alert
        }
        Item {
            width: 1
            height: 14
            visible: turning.visible
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

    // A wheel that still turns stops where it is.
    function press(button: int) {
        turning.chooseMiddle();
        alert.press(button);
    }
    function confirm() {
        turning.chooseMiddle();
        alert.pressPreferred();
    }
}
