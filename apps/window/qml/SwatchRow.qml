import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// One color to choose: its patch, its name above its text, the tick.
KeyRow {
    id: card

    required property swatch entry
    required property PageModel page
    default property alias content: face.data  // beside the texts
    property real footer: 0  // what is below the face
    property real below: 0   // of the face, below the names
    property real textWidth: face.width - names.x - Theme.unit(40)

    readonly property real side: Theme.sideOf(width)
    readonly property bool headed: entry.heading !== ""

    function parts(): var {
        return [];
    }
    function stops(): var {
        return [button, ...parts()];
    }
    // Shows again what the page has ticked: it may have refused.
    function pick() {
        page.select(index);
        button.checked = Qt.binding(() => card.entry.ticked);
    }

    height: face.y + face.height + footer

    Text {
        id: heading

        x: card.side + Theme.inset
        y: card.index === 0 ? 20 : 26
        visible: card.headed
        text: card.entry.heading
        textFormat: Text.PlainText
        color: Theme.secondary
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
        Accessible.ignored: !visible
    }

    Item {
        id: face

        x: card.side
        y: card.headed ? heading.y + heading.height + 8 : 0
        width: card.width - 2 * x
        height: Math.max(card.entry.height, names.implicitHeight + 10) + card.below

        CardFace {
            anchors.fill: parent
            first: card.entry.first
            last: card.entry.last
            pressed: button.down
            hovered: button.hovered
        }
        T.RadioButton {
            id: button

            anchors.fill: parent
            autoExclusive: false
            focusPolicy: Qt.ClickFocus
            text: card.entry.title
            checked: card.entry.ticked
            onClicked: card.pick()
            Keys.onReturnPressed: card.pick()
            Keys.onEnterPressed: card.pick()
            Accessible.name: text
            Accessible.description: card.entry.detail
            Accessible.focusable: true
            Accessible.onPressAction: card.pick()
            Accessible.onToggleAction: card.pick()

            ColorSwatch {
                id: patch

                x: Theme.inset
                anchors.verticalCenter: parent.verticalCenter
                anchors.verticalCenterOffset: -card.below / 2
                width: Math.min(Theme.unit(48), face.width * 0.2)
                height: Theme.unit(24)
                color: card.entry.image
                outline: card.entry.border
            }
            Column {
                id: names

                x: patch.visible ? patch.x + patch.width + 12 : Theme.inset
                anchors.verticalCenter: parent.verticalCenter
                anchors.verticalCenterOffset: -card.below / 2
                width: card.textWidth

                Text {
                    width: parent.width
                    text: card.entry.title
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.text
                    font.pixelSize: Theme.unit(14.5)
                }
                Text {
                    width: parent.width
                    visible: text !== ""
                    text: card.entry.detail
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.secondary
                    font.pixelSize: Theme.unit(11.5)
                }
            }
            Tick {
                anchors.right: parent.right
                anchors.rightMargin: Theme.inset - 4
                anchors.verticalCenter: parent.verticalCenter
                anchors.verticalCenterOffset: -card.below / 2
                visible: card.entry.ticked
            }
            FocusRing {
                of: button
            }
        }
    }
}
