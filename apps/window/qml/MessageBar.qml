import QtQuick

// A message as wide as the window, with a button at its right.
Rectangle {
    id: bar

    property string message
    property color ink
    property string action  // what the button says; empty: there is none
    property alias focusPolicy: button.focusPolicy
    readonly property bool focused: button.activeFocus

    signal acted

    implicitHeight: Math.max(Theme.rowHeight, words.implicitHeight + 20)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    Text {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: Theme.sideOf(bar.width)
        anchors.right: button.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: bar.message
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: bar.ink
        font.pixelSize: Theme.small
        Accessible.ignored: true
    }
    PressButton {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: Theme.sideOf(bar.width) - 10
        anchors.verticalCenter: parent.verticalCenter
        visible: text !== ""
        width: visible ? title.implicitWidth + 20 : 10
        height: Theme.rowHeight - 10
        text: bar.action
        opacity: down ? Theme.faded : 1
        onClicked: bar.acted()

        Text {
            id: title

            anchors.centerIn: parent
            text: button.text
            textFormat: Text.PlainText
            color: bar.ink
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        FocusRing {
            of: button
            border.color: bar.ink
        }
    }
}
