import QtQuick
import QtQuick.Templates as T

// A switch: the whole row turns it.
CardRow {
    id: card

    readonly property color onColor: Theme.switchOn(entry.onTint, entry.background)
    readonly property color offColor: Theme.switchOffOf(entry.onTint, entry.background)

    control: button
    hovered: button.hovered
    contentHeight: Math.max(Theme.rowHeight, label.implicitHeight + 20)

    T.Switch {
        id: button

        // Shows again what the page says: it may have refused.
        function turn() {
            card.page.setOn(card.index, checked);
            checked = Qt.binding(() => card.entry.on);
        }

        anchors.fill: parent
        focusPolicy: Qt.ClickFocus
        text: card.entry.label
        checked: card.entry.on
        onToggled: turn()
        Keys.onReturnPressed: { toggle(); turn(); }
        Keys.onEnterPressed: { toggle(); turn(); }
        Accessible.name: text
        Accessible.description: card.description
        Accessible.focusable: true
        Accessible.onToggleAction: { toggle(); turn(); }
        Accessible.onPressAction: { toggle(); turn(); }

        Text {
            id: label

            anchors.left: parent.left
            anchors.leftMargin: Theme.inset
            anchors.right: parent.right
            anchors.rightMargin: Theme.inset + Theme.unit(51) + 12
            anchors.verticalCenter: parent.verticalCenter
            text: card.entry.label
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.body
        }

        indicator: Rectangle { // qmllint disable deferred-property-id
            id: track

            readonly property color ground: Qt.tint(Theme.card, button.checked ? card.onColor : card.offColor)
            // The tint is for the outline of a switch that is off.
            readonly property bool outlined: !button.checked && card.entry.tint.a > 0

            x: button.width - width - Theme.inset
            y: (button.height - height) / 2
            width: Theme.unit(51)
            height: Theme.unit(31)
            radius: card.entry.cornerRadius >= 0 ? Math.min(card.entry.cornerRadius * Theme.scale, height / 2) : height / 2
            color: button.checked ? card.onColor : card.offColor
            border.width: outlined ? 2 : Theme.contrastOnCard(color) < Theme.controlGoal ? Theme.line : 0
            border.color: Theme.legible(outlined ? card.entry.tint : color)

            Behavior on color { ColorAnimation { duration: Theme.fade } }

            Rectangle {
                readonly property int gap: track.outlined ? 4 : 3

                x: gap + button.visualPosition * (track.width - width - 2 * gap)
                y: gap
                width: track.height - 2 * gap
                height: width
                radius: width / 2
                color: Theme.knobOn(track.ground)
                border.width: Theme.contrast(color, track.ground) < Theme.controlGoal ? 1 : 0
                border.color: Theme.edge

                Behavior on x {
                    enabled: !button.pressed
                    NumberAnimation { duration: Theme.fade; easing.type: Easing.OutCubic }
                }
            }
        }
    }
}
