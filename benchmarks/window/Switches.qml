import QtQuick
import QtQuick.Controls.Basic

// The least that a settings window of thirty switches can be.
ApplicationWindow {
    width: 390
    height: 844
    visible: true
    title: "Switches"

    ListView {
        anchors.fill: parent
        model: 30
        delegate: SwitchDelegate {
            required property int index

            width: ListView.view.width
            text: "Setting " + (index + 1)
            checked: index % 2 === 0
        }
    }
}
