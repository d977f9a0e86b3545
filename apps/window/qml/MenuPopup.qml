pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A menu at an item. Each entry has a text, and what it does; one that can't be chosen is dimmed.
// The arrows, Home and End, and typing the beginning of a word lead to an entry.
PopupBase {
    id: popup

    required property Item at
    required property var entries  // of { text, usable, act }
    // The item may be destroyed before the menu.
    readonly property point corner: parent && at ? at.mapToItem(parent, Math.max(0, at.width - width - 8), Math.min(at.height, Theme.barHeight)) : Qt.point(0, 0)

    // The next entry that can be chosen, and that is looked for if something is.
    function move(from: int, step: int, words = ""): bool {
        for (let i = from + step; i >= 0 && i < entries.length; i += step) {
            if (!entries[i].usable || !(" " + entries[i].text.toLowerCase()).includes(words))
                continue;
            items.itemAt(i).forceActiveFocus(Qt.TabFocusReason); // qmllint disable deferred-property-id
            return true;
        }
        return false;
    }
    function focused(): int {
        return entries.findIndex((_, i) => items.itemAt(i).activeFocus); // qmllint disable deferred-property-id
    }
    // A longer search may stay where it is.
    function seek(letter: string): bool {
        const from = typed.text === "" ? focused() : focused() - 1;
        typed.text += letter.toLowerCase();
        typed.restart();
        return move(from, 1, " " + typed.text) || move(-1, 1, " " + typed.text);
    }
    function press(event: KeyEvent): bool {
        switch (event.key) {
        case Qt.Key_Down: return move(focused(), 1);
        case Qt.Key_Up: return focused() >= 0 && move(focused(), -1);
        case Qt.Key_Home: return move(-1, 1);
        case Qt.Key_End: return move(entries.length, -1);
        }
        const command = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier);
        const begins = typed.text === "" && event.text === " ";
        return !command && !begins && event.text.length === 1 && event.text >= " " && seek(event.text);
    }

    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    padding: 4
    width: Math.min(Theme.unit(300), parent ? parent.width - 16 : 0)
    x: parent ? Math.max(8, Math.min(corner.x, parent.width - width - 8)) : 0
    y: parent ? Math.max(8, Math.min(corner.y, parent.height - implicitHeight - 8)) : 0
    onOpened: KeyboardUse.active ? move(-1, 1) : column.forceActiveFocus() // qmllint disable deferred-property-id
    onClosed: destroy()

    Timer {
        id: typed

        property string text

        interval: 1000
        onTriggered: text = ""
    }

    contentItem: ScrollColumn { // qmllint disable deferred-property-id
        id: column

        keyed: false
        Keys.onPressed: event => event.accepted = popup.press(event)
        Accessible.role: Accessible.PopupMenu
        Accessible.name: qsTr("Menu")

        Repeater {
            id: items

            model: popup.entries

            PressButton {
                id: entry

                required property var modelData

                width: column.width
                height: Math.max(Theme.rowHeight, name.implicitHeight + 16)
                enabled: modelData.usable
                text: modelData.text
                // A blank within what is typed is part of it.
                Keys.onSpacePressed: event => event.accepted = typed.text !== "" && popup.press(event)
                onClicked: {
                    popup.close();
                    modelData.act();
                }

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radius - 4
                    color: entry.down ? Theme.pressed : Theme.hovered
                    visible: entry.down || entry.hovered
                }
                Text {
                    id: name

                    x: Theme.inset - 2
                    width: parent.width - 2 * x
                    anchors.verticalCenter: parent.verticalCenter
                    text: entry.text
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    maximumLineCount: 3
                    elide: Text.ElideRight
                    color: Theme.text
                    opacity: entry.enabled ? 1 : Theme.disabled
                    font.pixelSize: Theme.body
                }
                FocusRing {
                    of: entry
                }
            }
        }
    }
}
