pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T

// What the keys do.
T.Popup {
    id: popup

    readonly property var keys: [
        [qsTr("Tab, Down, Up"), qsTr("from row to row")],
        [qsTr("Enter, Space"), qsTr("open, switch, press")],
        [qsTr("Left, Right"), qsTr("choose a segment, move a slider")],
        [qsTr("0 to 9"), qsTr("type the number of a slider")],
        [qsTr("Ctrl+F"), qsTr("search all pages")],
        [qsTr("Ctrl+Z, Ctrl+Shift+Z"), qsTr("undo, redo")],
        [qsTr("Menu, Shift+F10"), qsTr("what can be done with a row")],
        [qsTr("Esc, Alt+Left"), qsTr("back, or leave a text as it was")],
        [qsTr("Ctrl+W, Ctrl+Q"), qsTr("close the window")],
        [qsTr("F1"), qsTr("these keys")]
    ]

    parent: T.Overlay.overlay
    modal: true
    focus: true
    visible: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    padding: Theme.inset + 4
    width: Math.min(parent ? parent.width - 24 : 0, Theme.unit(430))
    height: Math.min(parent ? parent.height - 24 : 0, implicitContentHeight + 2 * padding)
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0

    T.Overlay.modal: Rectangle {
        color: Theme.shade
    }
    background: Rectangle {
        radius: Theme.radius + 2
        color: Theme.dialog
        border.width: Theme.dark || Theme.highContrast ? Theme.line : 0
        border.color: Theme.separator
    }
    contentItem: Flickable { // qmllint disable deferred-property-id
        id: frame

        implicitHeight: column.implicitHeight
        contentHeight: column.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}

        Column {
            id: column

            width: frame.width
            spacing: Theme.unit(12)

            Text {
                width: parent.width
                text: qsTr("Keys")
                color: Theme.text
                font.pixelSize: Theme.body
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Repeater {
                model: popup.keys

                Flow {
                    id: line

                    required property var modelData

                    width: column.width
                    spacing: 8
                    Accessible.role: Accessible.StaticText
                    Accessible.name: modelData[0] + ": " + modelData[1]

                    Text {
                        width: Theme.unit(140)
                        text: line.modelData[0]
                        color: Theme.text
                        font.pixelSize: Theme.small
                        font.weight: Font.DemiBold
                        Accessible.ignored: true
                    }
                    Text {
                        width: Math.min(implicitWidth, line.width)
                        text: line.modelData[1]
                        wrapMode: Text.Wrap
                        color: Theme.secondary
                        font.pixelSize: Theme.small
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
