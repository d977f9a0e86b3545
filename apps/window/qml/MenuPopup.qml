pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A menu at an item. Each entry has a text, and what it does; one that can't be chosen is dimmed.
PopupBase {
    id: popup

    required property Item at
    required property var entries  // of { text, usable, act }
    // The item may be destroyed before the menu.
    readonly property point corner: parent && at ? at.mapToItem(parent, Math.max(0, at.width - width - 8), Math.min(at.height, Theme.barHeight)) : Qt.point(0, 0)

    // The next entry that can be chosen.
    function move(from: int, step: int) {
        for (let i = from + step; i >= 0 && i < entries.length; i += step)
            if (entries[i].usable)
                return items.itemAt(i).forceActiveFocus(Qt.TabFocusReason); // qmllint disable deferred-property-id
    }

    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    padding: 4
    width: Math.min(Theme.unit(300), parent ? parent.width - 16 : 0)
    x: parent ? Math.max(8, Math.min(corner.x, parent.width - width - 8)) : 0
    y: parent ? Math.max(8, Math.min(corner.y, parent.height - implicitHeight - 8)) : 0
    onOpened: move(-1, 1)
    onClosed: destroy()

    contentItem: ScrollColumn { // qmllint disable deferred-property-id
        id: column

        keyed: false
        Accessible.role: Accessible.PopupMenu
        Accessible.name: qsTr("Menu")

        Repeater {
            id: items

            model: popup.entries

            PressButton {
                id: entry

                required property var modelData
                required property int index

                width: column.width
                height: Math.max(Theme.rowHeight, name.implicitHeight + 16)
                enabled: modelData.usable
                text: modelData.text
                onClicked: {
                    popup.close();
                    modelData.act();
                }
                Keys.onDownPressed: popup.move(index, 1)
                Keys.onUpPressed: popup.move(index, -1)

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radius - 4
                    color: Theme.pressed
                    visible: entry.down || entry.visualFocus || entry.hovered
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
                    color: entry.enabled ? Theme.text : Theme.secondary
                    opacity: entry.enabled ? 1 : 0.6
                    font.pixelSize: Theme.body
                }
            }
        }
    }
}
