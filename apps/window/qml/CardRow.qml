import QtQuick
import Quorvantis.Settings

// One row of a card. Its first and last rows are round; below the last one stands the group's
// footer. What a kind of row shows is its content.
FocusScope {
    id: card

    required property int index
    required property row entry
    required property PageModel page

    property Item control: null    // what takes the keyboard
    property bool ring: false      // it has it
    property bool pressed: false
    property real contentHeight: Theme.rowHeight
    default property alias content: face.data

    // What assistive technology says besides the name.
    readonly property string value: entry.spoken !== "" ? entry.spoken : entry.value
    readonly property string description: joined(joined(value, entry.reason), entry.changed ? qsTr("changed") : "")
    readonly property real side: Theme.sideOf(width)
    readonly property real cardHeight: Math.max(entry.height, contentHeight)

    function joined(one: string, other: string): string {
        return one === "" || other === "" ? one + other : one + ", " + other;
    }
    function take(reason: int) {
        if (control)
            control.forceActiveFocus(reason);
    }

    width: ListView.view ? ListView.view.width : 0
    Keys.onMenuPressed: extras.menu()
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier);
        if (event.accepted)
            extras.menu();
    }
    height: cardHeight + (footer.visible ? footer.height + 8 : 0)

    Item {
        id: area

        x: card.side
        width: card.width - 2 * card.side
        height: card.cardHeight

        CardFace {
            anchors.fill: parent
            first: card.entry.first
            last: card.entry.last
            pressed: card.pressed
        }
        Item {
            id: face

            anchors.fill: parent
            opacity: card.entry.opacity
            enabled: card.entry.usable && !extras.holding
        }
        FocusRing {
            visible: card.ring
        }
        RowExtras {
            id: extras

            anchors.fill: parent
            entry: card.entry
            page: card.page
            index: card.index
            control: card.control
        }
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: extras.menu()
        }
        HoverHandler {
            id: pointer
            enabled: card.entry.reason !== ""
        }
        TapHandler {
            enabled: card.entry.reason !== ""
            onTapped: hint.linger()
        }
        Hint {
            id: hint
            text: card.entry.reason
            wanted: pointer.hovered
        }
    }

    Text {
        id: footer

        anchors.top: area.bottom
        anchors.topMargin: 8
        x: card.side + Theme.inset
        width: card.width - 2 * x
        visible: text !== ""
        text: card.entry.footer
        wrapMode: Text.Wrap
        color: Theme.secondary
        font.pixelSize: Theme.small
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: !visible
    }
}
