import QtQuick
import QtQuick.Templates as T

// Narrows a long list to the entries that hold this text.
T.TextField {
    id: field

    implicitHeight: 38
    leftPadding: 14
    rightPadding: 36
    verticalAlignment: TextInput.AlignVCenter
    activeFocusOnTab: true
    selectByMouse: true
    placeholderText: qsTr("Filter")
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: "#FFFFFF"
    font.pixelSize: Theme.body
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape && text !== ""
    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        clear();
    }
    Accessible.name: placeholderText

    background: Rectangle {
        radius: 10
        color: Theme.dark ? "#1C1C1E" : "#E4E4E9"
        border.width: field.activeFocus ? 2 : 0
        border.color: Theme.accentText
    }

    Text {
        x: field.leftPadding
        height: field.height
        verticalAlignment: Text.AlignVCenter
        visible: field.text === "" && field.preeditText === ""
        text: field.placeholderText
        color: Theme.secondary
        font: field.font
        Accessible.ignored: true
    }

    T.AbstractButton {
        anchors.right: parent.right
        width: field.height
        height: field.height
        visible: field.text !== ""
        text: qsTr("Clear")
        onClicked: field.clear()
        Accessible.name: text
        Accessible.onPressAction: clicked()

        Rectangle {
            anchors.centerIn: parent
            width: 18
            height: 18
            radius: 9
            color: Theme.secondary

            Repeater {
                model: [45, -45]

                Rectangle {
                    required property int modelData

                    anchors.centerIn: parent
                    width: 9
                    height: 1.6
                    rotation: modelData
                    antialiasing: true
                    color: Theme.background
                }
            }
        }
    }
}
