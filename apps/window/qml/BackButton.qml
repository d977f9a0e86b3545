import QtQuick

// The way back in the bar of a page, with the title of the page that it leads to where that fits.
PressButton {
    id: button

    property string title
    property real widest: 0
    property real room: 0  // for the title
    readonly property bool named: Math.min(name.implicitWidth, widest) < room

    objectName: "back"
    width: Math.min(content.implicitWidth + 16, widest)
    height: Theme.barHeight
    focusPolicy: Qt.TabFocus
    text: qsTr("Back")
    opacity: down ? 0.4 : 1
    Accessible.description: title

    Row {
        id: content

        x: 8
        height: parent.height
        spacing: 7

        Chevron {
            anchors.verticalCenter: parent.verticalCenter
            back: true
            arm: Theme.unit(12)
            thickness: 2.4 * Theme.scale
            color: Theme.accentText
        }
        Text {
            id: name

            anchors.verticalCenter: parent.verticalCenter
            visible: button.named
            width: Math.min(implicitWidth, button.widest - 36)
            text: button.title !== "" ? button.title : button.text
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: Theme.accentText
            font.pixelSize: Theme.body
            Accessible.ignored: true
        }
    }
    FocusRing {
        of: button
    }
}
