import QtQuick
import Quorvantis.Settings

// Settings that can't be read: what that means, and the two ways out.
Rectangle {
    id: notice

    required property RecoveryModel recovery

    readonly property string title: qsTr("The settings can't be read")
    readonly property string detail: recovery.possible ? qsTr("Nothing can be changed until you choose how to go on. The damaged file is kept in both cases:") : qsTr("Nothing can be changed. This is the file:")

    implicitHeight: column.implicitHeight + 2 * Theme.inset
    color: Theme.warning
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: detail + " " + recovery.file

    Column {
        id: column

        readonly property real side: Theme.sideOf(notice.width)

        x: side
        y: Theme.inset
        width: notice.width - 2 * side
        spacing: 8

        Text {
            width: parent.width
            text: notice.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.warningText
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Text {
            width: parent.width
            text: notice.detail + "\n" + notice.recovery.file
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.warningText
            font.pixelSize: Theme.small
            Accessible.ignored: true
        }
        Flow {
            width: parent.width
            spacing: 8
            visible: notice.recovery.possible

            Way {
                text: qsTr("Restore the last snapshot")
                detail: notice.recovery.snapshot === "" ? qsTr("There is none") : qsTr("Of %1").arg(notice.recovery.snapshot)
                enabled: notice.recovery.snapshot !== ""
                onClicked: notice.recovery.restoreLast()
            }
            Way {
                text: qsTr("Start anew")
                detail: qsTr("With the defaults")
                onClicked: notice.recovery.startAnew()
            }
        }
    }

    component Way: PressButton {
        id: way

        property string detail

        width: Math.max(title.implicitWidth, below.implicitWidth) + 28
        height: title.implicitHeight + below.implicitHeight + 16
        opacity: down || !enabled ? 0.5 : 1
        Accessible.description: detail

        background: Rectangle {
            radius: 8
            color: "transparent"
            border.width: 1
            border.color: Theme.warningText

            FocusRing {
                of: way
            }
        }
        Text {
            id: title

            anchors.horizontalCenter: parent.horizontalCenter
            y: 8
            text: way.text
            textFormat: Text.PlainText
            color: Theme.warningText
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Text {
            id: below

            anchors.horizontalCenter: parent.horizontalCenter
            anchors.top: title.bottom
            text: way.detail
            textFormat: Text.PlainText
            color: Theme.warningText
            font.pixelSize: Theme.small
            Accessible.ignored: true
        }
    }
}
