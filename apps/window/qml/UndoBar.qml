import QtQuick
import Quorvantis.Settings

// What was done last, and the way to take it back. It leaves by itself.
MessageBar {
    id: bar

    required property UndoModel undo
    property bool covered: false  // by what lies over the pages

    visible: undo.text !== ""
    height: visible ? implicitHeight : 0
    color: Theme.hint
    ink: Theme.hintText
    message: undo.text
    action: undo.redoes ? qsTr("Redo") : undo.undoes ? qsTr("Undo") : ""
    onActed: undo.redoes ? undo.redo() : undo.undo()

    Connections {
        target: bar.undo

        function onChanged() {
            if (moment.running)
                moment.restart();
        }
    }
    Timer {
        id: moment

        interval: 10000
        running: bar.visible && !bar.covered && !pointer.hovered && !bar.focused
        onTriggered: bar.undo.forget()
    }
    HoverHandler {
        id: pointer
    }
    Shortcut {
        sequence: "Esc"
        enabled: bar.visible
        onActivated: bar.undo.forget()
    }
}
