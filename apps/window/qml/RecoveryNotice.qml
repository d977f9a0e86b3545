import QtQuick
import Quorvantis.Settings

// Settings that can't be read: what that means, and the two ways out. It scrolls where it would take
// most of the window.
Rectangle {
    id: notice

    required property RecoveryModel recovery

    readonly property string title: qsTr("The settings can't be read")
    readonly property string detail: recovery.possible ? qsTr("Nothing can be changed until you choose how to go on. The damaged file is kept in both cases:") : qsTr("Nothing can be changed. This is the file:")

    implicitHeight: Math.min(column.contentHeight + 2 * Theme.inset, Math.round(Window.height * 0.6))
    color: Theme.warning
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: detail + " " + recovery.file

    ScrollColumn {
        id: column

        readonly property real side: Theme.sideOf(notice.width)

        x: side
        y: Theme.inset
        width: notice.width - 2 * side
        height: notice.height - 2 * y
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
            id: ways

            width: parent.width
            spacing: 8
            visible: notice.recovery.possible

            Way {
                widest: ways.width
                text: qsTr("Restore the last snapshot")
                detail: notice.recovery.snapshot === "" ? qsTr("There is none") : qsTr("Of %1").arg(notice.recovery.snapshot)
                enabled: notice.recovery.snapshot !== ""
                onClicked: notice.recovery.restoreLast()
            }
            Way {
                widest: ways.width
                text: qsTr("Start anew")
                detail: qsTr("With the defaults")
                onClicked: notice.recovery.startAnew()
            }
        }
    }

    component Way: PressButton {
        id: way

        required property real widest
        property string detail

        width: Math.min(widest, Math.max(title.implicitWidth, below.implicitWidth))
        height: title.height + below.height + 16
        opacity: !enabled ? Theme.disabled : down ? Theme.faded : 1
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

            y: 8
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            leftPadding: 14
            rightPadding: 14
            text: way.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.warningText
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Text {
            id: below

            anchors.top: title.bottom
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            leftPadding: 14
            rightPadding: 14
            text: way.detail
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.warningText
            font.pixelSize: Theme.small
            Accessible.ignored: true
        }
    }
}
