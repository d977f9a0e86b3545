import QtQuick
import QtQuick.Templates as T

// A text to type: what a list is narrowed to or searched for, or the answer to a question. Esc
// clears it, as a click on its cross does.
T.TextField {
    id: field

    implicitHeight: Theme.unit(38)
    leftPadding: 14
    rightPadding: Theme.unit(36)
    verticalAlignment: TextInput.AlignVCenter
    activeFocusOnTab: true
    selectByMouse: true
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.textOnAccent
    font.pixelSize: Theme.body
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape && text !== ""
    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        clear();
    }
    Accessible.name: placeholderText

    background: Rectangle {
        radius: 10
        color: Theme.field
        border.width: field.activeFocus ? 2 : 0
        border.color: Theme.accentText
    }

    Text {
        x: field.leftPadding
        height: field.height
        verticalAlignment: Text.AlignVCenter
        visible: field.text === "" && field.preeditText === ""
        text: field.placeholderText
        textFormat: Text.PlainText
        color: Theme.secondary
        font: field.font
        Accessible.ignored: true
    }

    T.AbstractButton {
        anchors.right: parent.right
        width: field.height
        height: field.height
        visible: field.text !== ""
        focusPolicy: Qt.NoFocus
        activeFocusOnTab: false
        text: qsTr("Clear")
        onClicked: field.clear()
        Accessible.name: text
        Accessible.onPressAction: clicked()

        Rectangle {
            anchors.centerIn: parent
            width: Theme.unit(18)
            height: width
            radius: width / 2
            color: Theme.secondary

            Repeater {
                model: [45, -45]

                Rectangle {
                    required property int modelData

                    anchors.centerIn: parent
                    width: Theme.unit(9)
                    height: 1.6 * Theme.scale
                    rotation: modelData
                    antialiasing: true
                    color: Theme.background
                }
            }
        }
    }
}
