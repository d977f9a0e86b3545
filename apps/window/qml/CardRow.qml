import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// One row of a card. Its first and last rows are round; below the last one stands the group's
// footer. What a kind of row shows is its content.
KeyRow {
    id: card

    required property row entry
    required property PageModel page

    property Item control: null  // what takes the keyboard
    property bool pressed: false
    property bool hovered: false   // by a pointer that can press it
    property real contentHeight: Theme.rowHeight
    property string cut             // the whole text where the pointer rests on one that is cut off
    default property alias content: face.data

    // What assistive technology says besides the name.
    readonly property string value: entry.spoken !== "" ? entry.spoken : entry.value
    readonly property string remarks: joined(entry.reason, entry.changed ? qsTr("changed") : "")
    readonly property string description: joined(value, remarks)
    readonly property bool usable: entry.usable
    // What stands beside the label; as dark as that where it is dimmed.
    readonly property color faint: usable ? Theme.secondary : Theme.text
    readonly property real side: Theme.sideOf(width)
    readonly property real cardHeight: Math.max(entry.height, contentHeight)
    // It has more than its control, or may have at any moment.
    readonly property bool special: entry.changed || page.marked === index || ((control as T.AbstractButton)?.pressed ?? false) || activeFocus && KeyboardUse.active

    function stops(): var {
        return control ? [usable ? control : dimmed] : [];
    }

    function menu() {
        extras.active = true;
        (extras.item as RowExtras).menu();
    }
    function joined(one: string, other: string): string {
        return one === "" || other === "" ? one + other : one + ", " + other;
    }

    onSpecialChanged: if (special) extras.active = true
    Component.onCompleted: if (special) extras.active = true
    onUsableChanged: if (activeFocus) take(false)
    // What a row in use has accepted doesn't come here.
    Keys.onEnterPressed: event => Keys.returnPressed(event)
    Keys.onReturnPressed: event => {
        event.accepted = entry.wayOut !== "";
        if (event.accepted)
            page.takeWayOut(index);
    }
    Keys.onMenuPressed: menu()
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier);
        if (event.accepted)
            menu();
    }
    height: cardHeight + (footer.active ? footer.height + 8 : 0)

    Item {
        id: area

        readonly property bool hints: card.entry.reason !== ""  // also of what is cut off in it

        x: card.side
        width: card.width - 2 * card.side
        height: card.cardHeight

        CardFace {
            width: area.width
            height: area.height
            first: card.entry.first
            last: card.entry.last
            pressed: card.pressed
            hovered: card.hovered
        }
        DimmedRow {
            id: dimmed

            width: area.width
            height: area.height
            control: card.control
            dimmed: !card.usable && card.control !== null
            wayOut: card.entry.wayOut
            onTaken: card.page.takeWayOut(card.index)
            Accessible.ignored: !dimmed

            Item {
                id: face

                width: area.width
                height: area.height
                opacity: card.usable ? card.entry.opacity : Math.max(card.entry.opacity, Theme.dimmed)
                enabled: card.usable && !((extras.item as RowExtras)?.holding ?? false)
            }
        }
        Loader {
            id: extras

            width: area.width
            height: area.height
            active: false
            sourceComponent: RowExtras {
                row: card  // qmllint disable unqualified
                entry: card.entry  // qmllint disable unqualified
                page: card.page  // qmllint disable unqualified
                index: card.index  // qmllint disable unqualified
                control: card.control  // qmllint disable unqualified
            }
        }
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: card.menu()
        }
        HoverHandler {
            id: pointer

            function look() {
                card.cut = Desktop.truncatedAt(face, point.position);
            }

            enabled: area.hints
            onPointChanged: if (hovered) look()
            onHoveredChanged: {
                if (hovered)
                    look();
                else
                    (hint.item as Hint)?.rest();
            }
        }
        TapHandler {
            enabled: area.hints
            onTapped: (hint.item as Hint)?.linger()
        }
        Loader {
            id: hint

            width: area.width
            height: area.height
            active: area.hints
            sourceComponent: Hint {
                text: card.cut === "" ? card.entry.reason : card.cut + "\n" + card.entry.reason  // qmllint disable unqualified
                wanted: pointer.hovered || (dimmed.activeFocus && KeyboardUse.active)  // qmllint disable unqualified
                action: card.entry.wayOut  // qmllint disable unqualified
                onActed: card.page.takeWayOut(card.index)  // qmllint disable unqualified
            }
        }
    }

    Loader {
        id: footer

        anchors.top: area.bottom
        anchors.topMargin: 8
        x: card.side + Theme.inset
        width: card.width - 2 * x
        active: card.entry.footer !== ""
        sourceComponent: Text {
            text: card.entry.footer  // qmllint disable unqualified
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondary
            font.pixelSize: Theme.small
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
