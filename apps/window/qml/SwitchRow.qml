import QtQuick
import QtQuick.Templates as T

// A switch: the whole row turns it.
CardRow {
    id: card

    readonly property color onColor: Theme.given(entry.onTint, Theme.accent)
    readonly property color offColor: Theme.given(entry.background, Theme.track)

    control: button
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
            anchors.rightMargin: Theme.inset + 51 + 12
            anchors.verticalCenter: parent.verticalCenter
            text: card.entry.label
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.body
        }

        indicator: Rectangle {
            // The tint is for the outline of a switch that is off.
            readonly property bool outlined: !button.checked && card.entry.tint.a > 0

            x: button.width - width - Theme.inset
            y: (button.height - height) / 2
            width: 51
            height: 31
            radius: card.entry.cornerRadius >= 0 ? Math.min(card.entry.cornerRadius, height / 2) : height / 2
            color: button.checked ? card.onColor : card.offColor
            border.width: outlined ? 2 : Theme.contrastOnCard(color) < 3 ? 1 : 0
            border.color: Theme.legible(outlined ? card.entry.tint : color)

            Behavior on color { ColorAnimation { duration: 140 } }

            Rectangle {
                x: 2 + button.visualPosition * (parent.width - width - 4)
                y: 2
                width: 27
                height: 27
                radius: 13.5
                color: "#FFFFFF"
                border.width: 1
                border.color: "#14000000"

                Behavior on x {
                    enabled: !button.pressed
                    NumberAnimation { duration: 140; easing.type: Easing.OutCubic }
                }
            }
        }
    }
}
