pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// What the keys do.
PopupBase {
    id: popup

    readonly property var keys: [
        [qsTr("Tab, Down, Up"), qsTr("from row to row")],
        [qsTr("Page Up, Page Down, Home, End"), qsTr("further along the page")],
        [qsTr("Enter, Space"), qsTr("open, switch, press")],
        [qsTr("Left, Right"), qsTr("choose a segment, move a slider")],
        [qsTr("0 to 9"), qsTr("type the number of a slider")],
        [qsTr("Shift+F10, Menu"), qsTr("what else a row offers")],
        [qsTr("Ctrl+F"), qsTr("search; on the first page just type")],
        [qsTr("Ctrl+Z, Ctrl+Shift+Z"), qsTr("undo, redo")],
        [qsTr("Esc, Alt+Left"), qsTr("back, or leave a text as it was")],
        [qsTr("Ctrl+W, Ctrl+Q"), qsTr("close the window")],
        [qsTr("F1"), qsTr("these keys")]
    ]

    visible: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    padding: Theme.inset + 4
    width: Math.min(parent ? parent.width - 24 : 0, Theme.unit(430))

    contentItem: ScrollColumn { // qmllint disable deferred-property-id
        id: column

        focus: true
        spacing: Theme.unit(12)

        Text {
            width: parent.width
            text: qsTr("Keys")
            textFormat: Text.PlainText
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
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.text
                    font.pixelSize: Theme.small
                    font.weight: Font.DemiBold
                    Accessible.ignored: true
                }
                Text {
                    width: Math.min(implicitWidth, line.width)
                    text: line.modelData[1]
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.secondary
                    font.pixelSize: Theme.small
                    Accessible.ignored: true
                }
            }
        }
    }
}
