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
    property int resized: 0  // how often the page below was laid out in another size
    readonly property rect anchor: anchorRect(parentWidth, parentHeight, resized)
    readonly property bool below: anchor.y + anchor.height + 14 + height <= parentHeight - 12
    readonly property bool above: anchor.y - 14 - height >= top + 12
    readonly property bool inSight: anchor.width > 0 && anchor.y >= top && anchor.y + anchor.height <= parentHeight
    readonly property bool pointed: wide && inSight && (below || above)

    // Of its arguments nothing is used: a change of them has it evaluated again.
    function anchorRect(width: real, height: real, resized: int): rect {
        const item = page ? page.anchorOf(alert) : null;
        return item && parent ? item.mapToItem(parent, 0, 0, item.width, item.height) : Qt.rect(0, 0, 0, 0);
    }
    onParentWidthChanged: later.start()
    onParentHeightChanged: later.start()
    width: wide ? Theme.unit(320) : Math.min(parentWidth - 16, Theme.unit(440))
    x: Math.round(pointed ? Math.max(12, Math.min(parentWidth - 12 - width, anchor.x + anchor.width / 2 - width / 2)) : (parentWidth - width) / 2)
    y: Math.round(!wide ? parentHeight - height - 8 : !pointed ? top + (parentHeight - top - height) / 2 : below ? Math.max(top + 14, anchor.y + anchor.height + 14) : anchor.y - 14 - height)
    opacity: wide ? shown : 1

    Timer {
        id: later

        interval: 0
        onTriggered: ++popup.resized
    }

    background: Item {
        visible: popup.wide

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
        DialogFace {
            anchors.fill: parent
        }
    }
    contentItem: AlertFrame { // qmllint disable deferred-property-id
        of: popup
        spacing: popup.wide ? 0 : 8
        transform: Translate { y: popup.wide ? 0 : (1 - popup.shown) * (popup.height + 8) }

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

    component Card: DialogFace {
        default property alias content: inside.data

        width: parent.width
        height: inside.height
        color: popup.wide ? "transparent" : Theme.dialog
        border.width: popup.wide || !Theme.dark && !Theme.highContrast ? 0 : Theme.line

        Column {
            id: inside
            width: parent.width
        }
    }
    component Buttons: Column {
        id: buttons

        required property bool cancels

        width: parent.width

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
