import QtQuick

// A sentence where there is nothing else to show.
Item {
    id: notice

    property string title
    property string detail
    property bool busy: false  // it says what is being done

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 64, Theme.unit(420))
        spacing: 8

        BusyWheel {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: notice.busy
            Accessible.name: notice.title
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: notice.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondary
            font.pixelSize: Math.round(Theme.body * 1.15)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            visible: text !== ""
            text: notice.detail
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondary
            font.pixelSize: Theme.small
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
