import QtQuick
import Quorvantis.Settings

// What was done last, and the way to take it back. It leaves by itself.
Rectangle {
    id: bar

    required property UndoModel undo
    property bool covered: false  // by what lies over the pages

    visible: undo.text !== ""
    implicitHeight: Math.max(Theme.rowHeight, words.implicitHeight + 20)
    height: visible ? implicitHeight : 0
    color: Theme.hint
    Accessible.role: Accessible.AlertMessage
    Accessible.name: undo.text

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
        running: bar.visible && !bar.covered && !pointer.hovered && !button.activeFocus
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

    Text {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: Theme.sideOf(bar.width)
        anchors.right: button.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: bar.undo.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.hintText
        font.pixelSize: Theme.small
        Accessible.ignored: true
    }
    PressButton {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: Theme.sideOf(bar.width) - 10
        anchors.verticalCenter: parent.verticalCenter
        visible: bar.undo.undoes || bar.undo.redoes
        width: visible ? title.implicitWidth + 20 : 10
        height: Theme.rowHeight - 10
        text: bar.undo.redoes ? qsTr("Redo") : qsTr("Undo")
        opacity: down ? 0.4 : 1
        onClicked: bar.undo.redoes ? bar.undo.redo() : bar.undo.undo()

        Text {
            id: title

            anchors.centerIn: parent
            text: button.text
            textFormat: Text.PlainText
            color: Theme.hintText
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        FocusRing {
            of: button
            border.color: Theme.hintText
        }
    }
}
