import QtQuick

// The way back in the bar of a page: the title of the page that it leads to, where that fits whole
// beside the page's own, else "Back", where there is room for a word.
PressButton {
    id: button

    property string title
    property real widest: 0
    property real room: 0  // for the title, beside the whole of the page's own
    property real least: 0  // the same where that one shrinks
    readonly property bool whole: title !== "" && titleSize.advanceWidth < Math.min(room, widest - content.rest)

    objectName: "back"
    width: content.implicitWidth + 16
    height: Theme.barHeight
    focusPolicy: Qt.TabFocus
    text: qsTr("Back")
    opacity: down ? Theme.faded : 1
    Accessible.description: title

    TextMetrics {
        id: titleSize
        text: button.title
        font: name.font
    }
    Row {
        id: content

        readonly property real rest: chevron.width + spacing + 16

        x: 8
        height: parent.height
        spacing: 7

        Chevron {
            id: chevron

            anchors.verticalCenter: parent.verticalCenter
            back: true
            arm: Theme.unit(12)
            thickness: 2.4 * Theme.scale
            color: Theme.accentText
        }
        Text {
            id: name

            anchors.verticalCenter: parent.verticalCenter
            visible: button.whole || implicitWidth < button.least
            text: button.whole ? button.title : button.text
            textFormat: Text.PlainText
            color: Theme.accentText
            font.pixelSize: Theme.body
            Accessible.ignored: true
        }
    }
    FocusRing {
        of: button
    }
}
