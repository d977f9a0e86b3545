import QtQuick
import QtQuick.Templates as T

// A few words beside what the pointer rests on; after a tap for a moment. With something to do
// about them it waits for the pointer to reach it.
T.ToolTip {
    id: hint

    property bool wanted: false
    property string action  // what can be done; empty: nothing
    readonly property bool reached: wanted || moment.running || inside.hovered
    property bool held: false
    readonly property bool onScreen: (parent?.Window.window ?? null) !== null  // not on a page that was left

    signal acted

    function linger() {
        moment.restart();
    }

    function rest() {
        moment.stop();
    }

    onReachedChanged: {
        if (reached)
            held = true;
        else if (action === "")
            held = false;
        else
            leaving.restart();
    }
    visible: text !== "" && held && onScreen
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
        interval: hint.action === "" ? 2500 : 6000
    }
    Timer {
        id: leaving
        interval: 300
        onTriggered: hint.held = hint.reached
    }

    background: Rectangle {
        radius: 8
        color: Theme.hint
    }
    contentItem: Column { // qmllint disable deferred-property-id
        spacing: 4

        HoverHandler {
            id: inside
        }
        Text {
            width: Math.min(implicitWidth, (hint.parent?.Window.width ?? 390) - 36)
            text: hint.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.hintText
            font.pixelSize: Theme.small
        }
        T.AbstractButton {
            id: button

            visible: hint.action !== ""
            implicitWidth: title.implicitWidth + 24
            implicitHeight: title.implicitHeight + 14
            text: hint.action
            opacity: down ? Theme.faded : 1
            onClicked: {
                moment.stop();
                hint.held = false;
                hint.acted();
            }
            Accessible.name: text
            Accessible.onPressAction: clicked()

            background: Rectangle {
                radius: 6
                color: "transparent"
                border.width: 1
                border.color: Theme.hintText
            }
            Text {
                id: title

                anchors.centerIn: parent
                text: button.text
                textFormat: Text.PlainText
                color: Theme.hintText
                font.pixelSize: Theme.small
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }
        }
    }
}
