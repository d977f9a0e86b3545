import QtQuick
import Quorvantis.Settings

// What an alert or a sheet says.
Column {
    id: words

    required property AlertModel alert

    padding: Theme.inset
    topPadding: 18
    spacing: 6

    Text {
        width: words.width - 2 * words.padding
        horizontalAlignment: Text.AlignHCenter
        visible: text !== ""
        text: words.alert.title
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.text
        font.pixelSize: Theme.body
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Text {
        width: words.width - 2 * words.padding
        horizontalAlignment: Text.AlignHCenter
        visible: text !== ""
        text: words.alert.message
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: words.alert.sheet ? Theme.secondary : Theme.text
        font.pixelSize: Theme.small
        lineHeight: 1.1
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    // What its own words may deny.
    Rectangle {
        width: words.width - 2 * words.padding
        height: failures.implicitHeight + 16
        visible: failures.text !== ""
        radius: 8
        color: Theme.warning

        Text {
            id: failures

            anchors.fill: parent
            anchors.margins: 8
            text: words.alert.failures
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.warningText
            font.pixelSize: Theme.small
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
