pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// A sheet of actions: it slides up from the bottom of a narrow window, and is a popover that points
// to its anchor in a wide one.
AlertBase {
    id: popup

    property PageView page: null  // where it was opened

    readonly property real parentWidth: parent ? parent.width : 0
    readonly property real parentHeight: parent ? parent.height : 0
    readonly property bool wide: parentWidth >= Theme.wide
    readonly property rect anchor: anchorRect(parentWidth, parentHeight)
    readonly property bool pointed: wide && anchor.width > 0
    readonly property bool below: anchor.y + anchor.height + 14 + implicitHeight <= parentHeight - 12

    function anchorRect(width: real, height: real): rect {
        const item = page ? page.anchorOf(alert) : null;
        return item && parent ? item.mapToItem(parent, 0, 0, item.width, item.height) : Qt.rect(0, 0, 0, 0);
    }
    // Its height is that, but changes as it is placed.
    width: wide ? Theme.unit(320) : Math.min(parentWidth - 16, 440)
    x: Math.round(pointed ? Math.max(12, Math.min(parentWidth - 12 - width, anchor.x + anchor.width / 2 - width / 2)) : (parentWidth - width) / 2)
    y: Math.round(!wide ? parentHeight - implicitHeight - 8 : !pointed ? (parentHeight - implicitHeight) / 2 : below ? Math.max(top + 14, anchor.y + anchor.height + 14) : Math.max(12, anchor.y - 14 - implicitHeight))
    opacity: wide ? shown : 1

    contentItem: FocusScope { // qmllint disable deferred-property-id
        id: frame

        function move(forward: bool) {
            const item = Window.activeFocusItem ?? frame;
            item.nextItemInFocusChain(forward).forceActiveFocus(Qt.TabFocusReason);
        }

        implicitHeight: column.implicitHeight
        focus: true
        transform: Translate { y: popup.wide ? 0 : (1 - popup.shown) * (popup.height + 8) }
        Keys.onDownPressed: move(true)
        Keys.onUpPressed: move(false)
        Keys.onEscapePressed: popup.alert.cancel()
        Keys.onBackPressed: popup.alert.cancel()
        Accessible.role: Accessible.Dialog
        Accessible.name: popup.alert.title
        Accessible.description: popup.description

        // Points to the anchor.
        Rectangle {
            visible: popup.pointed
            width: 20
            height: 20
            x: Math.max(16, Math.min(parent.width - 36, popup.anchor.x + popup.anchor.width / 2 - popup.x - 10))
            y: popup.below ? -9 : parent.height - 11
            rotation: 45
            antialiasing: true
            color: Theme.dialog
        }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radius + 2
            visible: popup.wide
            color: Theme.dialog
        }
        Column {
            id: column

            width: parent.width
            spacing: popup.wide ? 0 : 8

            Card {
                AlertText {
                    width: parent.width
                    alert: popup.alert
                }
                Buttons {
                    cancels: false
                }
            }
            Card {
                Buttons {
                    cancels: true
                }
            }
        }
    }

    component Card: Rectangle {
        default property alias content: inside.data

        width: column.width
        height: inside.height
        radius: Theme.radius + 2
        color: popup.wide ? "transparent" : Theme.dialog

        Column {
            id: inside
            width: parent.width
        }
    }
    component Buttons: Column {
        id: buttons

        required property bool cancels

        width: column.width

        Repeater {
            model: popup.alert.buttons

            AlertButtonView {
                required property int index
                required property alertButton modelData

                width: buttons.width
                implicitHeight: Theme.rowHeight + 6
                visible: modelData.cancels === buttons.cancels
                focus: modelData.cancels === buttons.cancels && index === popup.alert.firstButton
                shown: modelData
                strong: modelData.cancels
                line: popup.wide || !buttons.cancels
                onClicked: popup.alert.press(index)
            }
        }
    }
}
