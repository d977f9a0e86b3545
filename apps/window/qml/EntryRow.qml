import QtQuick
import Quorvantis.Settings

// An entry of a list over the pages: what it is, more about it below, and a value at the right.
Item {
    id: entry

    property string label
    property string detail
    property string value
    property bool first: true
    property bool last: true
    property bool current: false  // what Return chooses
    property bool leads: true     // it can be chosen

    signal chosen

    implicitHeight: Math.max(Theme.rowHeight, texts.implicitHeight + 16)

    PressButton {
        id: button

        x: Theme.sideOf(entry.width)
        width: parent.width - 2 * x
        height: parent.height
        focusPolicy: entry.leads ? Qt.StrongFocus : Qt.NoFocus
        enabled: entry.leads
        text: entry.label
        onClicked: entry.chosen()
        Accessible.description: entry.value + (entry.value === "" || entry.detail === "" ? "" : ", ") + entry.detail

        CardFace {
            anchors.fill: parent
            first: entry.first
            last: entry.last
            pressed: button.down
            hovered: button.hovered
        }
        Column {
            id: texts

            anchors.left: parent.left
            anchors.leftMargin: Theme.inset
            anchors.right: chevron.left
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            LabelledValue {
                width: parent.width
                label: entry.label
                value: entry.value
            }
            Text {
                width: parent.width
                visible: text !== ""
                text: entry.detail
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                maximumLineCount: entry.leads ? 3 : 100
                elide: Text.ElideRight
                color: Theme.secondary
                font.pixelSize: Theme.small
                Accessible.ignored: true
            }
        }
        Chevron {
            id: chevron

            anchors.right: parent.right
            anchors.rightMargin: Theme.inset - 2
            anchors.verticalCenter: parent.verticalCenter
            width: entry.leads ? implicitWidth : 0
            visible: entry.leads
        }
        FocusRing {
            of: button
            visible: entry.current || button.activeFocus && KeyboardUse.active
        }
    }
}
