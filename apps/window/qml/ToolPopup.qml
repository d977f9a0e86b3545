import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// Shows a view over the pages: the whole of a narrow window, a card in a wide one.
PopupBase {
    id: popup

    required property Tools tools
    required property url file     // of the view
    required property var values   // what the view is made with
    readonly property bool whole: !parent || parent.width < Theme.wide
    property real bottom: 0        // what stands below it in the window
    readonly property real room: (parent ? parent.height : 0) - top - bottom

    shown: 0
    closePolicy: whole ? T.Popup.CloseOnEscape : T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    width: !parent ? 0 : whole ? parent.width : Theme.widest
    height: whole ? room : room - 64
    y: Math.round(top + (room - height) / 2) + (1 - shown) * 24
    opacity: shown
    onAboutToShow: loader.setSource(file, Object.assign({ tools: tools }, values)) // qmllint disable deferred-property-id
    onClosed: destroy()

    Connections {
        target: popup.tools

        function onPageOpened() {
            popup.close();
        }
    }

    enter: Transition { NumberAnimation { property: "shown"; from: 0; to: 1; duration: Theme.slide * 0.6; easing.type: Easing.OutCubic } }
    exit: Transition { NumberAnimation { property: "shown"; to: 0; duration: Theme.slide * 0.4; easing.type: Easing.InCubic } }

    background: Rectangle {
        radius: popup.whole ? 0 : Theme.radius
        color: Theme.background
        border.width: popup.whole ? 0 : Theme.line
        border.color: Theme.separator
    }

    contentItem: FocusScope { // qmllint disable deferred-property-id
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: heading.text

        TruncatedHint {}
        Item {
            id: bar

            width: parent.width
            height: Theme.barHeight

            TextButton {
                id: closing

                x: 4
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Close")
                onClicked: popup.close()
            }
            Text {
                id: heading

                readonly property real begin: closing.x + closing.width + 8

                // In the middle while it fits there.
                x: Math.max(begin, (parent.width - width) / 2)
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, parent.width - begin - Theme.inset)
                text: (loader.item as ToolView)?.heading ?? ""
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.text
                font.pixelSize: Theme.body
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
        }
        Loader {
            id: loader

            anchors.top: bar.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            focus: true
            onLoaded: {
                const view = item as ToolView;
                view.focus = true;
                view.done.connect(() => popup.close());
            }
        }
    }
}
