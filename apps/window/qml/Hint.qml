import QtQuick
import QtQuick.Templates as T

// A few words beside what the pointer rests on; after a tap for a moment.
T.ToolTip {
    id: hint

    property bool wanted: false

    function linger() {
        moment.restart();
    }

    visible: text !== "" && (wanted || moment.running)
    delay: moment.running ? 0 : 400
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - 6 : 0
    margins: 8
    padding: 10
    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape

    Timer {
        id: moment
        interval: 2500
    }

    background: Rectangle {
        radius: 8
        color: Theme.hint
    }
    contentItem: Text {
        text: hint.text
        textFormat: Text.PlainText
        color: Theme.hintText
        font.pixelSize: Theme.small
    }
}
