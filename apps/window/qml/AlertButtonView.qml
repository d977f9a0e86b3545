import QtQuick
import Quorvantis.Settings

// One button of an alert or a sheet.
PressButton {
    id: button

    required property alertButton shown
    property bool strong: shown.preferred
    property bool line: true  // at the top
    property bool bar: false  // at the left

    implicitWidth: implicitContentWidth + 32
    implicitHeight: Math.max(Theme.rowHeight, implicitContentHeight + 20)
    text: shown.title
    Accessible.defaultButton: shown.preferred

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: Theme.radius
            color: button.down ? Theme.pressed : Theme.hovered
            visible: button.down || button.hovered
        }
        Rectangle {
            width: parent.width
            height: Theme.line
            visible: button.line
            color: Theme.separator
        }
        Rectangle {
            width: Theme.line
            height: parent.height
            visible: button.bar
            color: Theme.separator
        }
    }
    contentItem: Text {
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: button.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: button.shown.destructive ? Theme.destructive : Theme.accentText
        font.pixelSize: Theme.body
        font.weight: button.strong ? Font.DemiBold : Font.Normal
    }
    FocusRing {
        of: button
    }
}
