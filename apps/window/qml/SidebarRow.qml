import QtQuick
import Quorvantis.Settings

// A row of the sidebar: its picture, its label, and below that its value.
PressButton {
    id: button

    required property int index
    required property row entry
    property bool opened: false
    readonly property color front: opened ? Theme.textOnAccent : Theme.text

    signal chosen

    x: 8
    width: ListView.view ? ListView.view.width - 2 * x : 0
    implicitHeight: Math.max(Theme.rowHeight - 2, texts.implicitHeight + 10)
    // Tab visits the sidebar once, arrow keys move within it.
    focusPolicy: ListView.isCurrentItem || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    onActiveFocusChanged: if (activeFocus) ListView.view.currentIndex = index
    text: entry.label
    onClicked: chosen()
    Accessible.description: entry.value
    Accessible.selectable: true
    Accessible.selected: opened

    background: Rectangle {
        radius: Theme.radius - 2
        color: button.opened ? Theme.accent : button.down ? Theme.pressed : Theme.hovered
        visible: button.opened || button.down || button.hovered
    }
    Image {
        id: picture

        readonly property string ink: (button.opened ? Theme.textOnAccent : Theme.accent).toString().slice(-6)

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.unit(22)
        height: width
        sourceSize.width: width
        sourceSize.height: height
        source: button.entry.icon === "" ? "" : "image://icons/" + button.entry.icon + "/" + ink
    }
    Column {
        id: texts

        anchors.left: picture.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter

        Text {
            width: parent.width
            text: button.entry.label
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: button.front
            font.pixelSize: Theme.unit(15)
        }
        Text {
            width: parent.width
            visible: text !== ""
            text: button.entry.value
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: button.opened ? Theme.textOnAccent : Theme.secondary
            font.pixelSize: Theme.unit(12)
        }
    }
    FocusRing {
        anchors.margins: -1
        of: button
        border.color: button.opened ? Theme.text : Theme.accentText
    }
}
