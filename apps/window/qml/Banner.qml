import QtQuick

// A problem, shown until the user dismisses it.
Rectangle {
    id: banner

    property string message

    signal dismissed

    implicitHeight: Math.max(Theme.rowHeight, words.implicitHeight + 20)
    color: Theme.warning
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    Text {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: Theme.sideOf(banner.width)
        anchors.right: button.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: banner.message
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.warningText
        font.pixelSize: Theme.small
        Accessible.ignored: true
    }

    PressButton {
        id: button

        objectName: "dismiss"
        anchors.right: parent.right
        anchors.rightMargin: Theme.sideOf(banner.width) - 10
        anchors.verticalCenter: parent.verticalCenter
        width: title.implicitWidth + 20
        height: Theme.rowHeight - 10
        focusPolicy: Qt.TabFocus
        text: qsTr("Dismiss")
        opacity: down ? 0.4 : 1
        onClicked: banner.dismissed()

        Text {
            id: title

            anchors.centerIn: parent
            text: button.text
            textFormat: Text.PlainText
            color: Theme.warningText
            font.pixelSize: Theme.small
            font.weight: Font.DemiBold
        }
        FocusRing {
            of: button
        }
    }
}
