import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A question, with a text to edit where it asks for one. The keyboard is in that text, else on the
// button that does nothing.
T.Popup {
    id: popup

    required property var question  // { heading, words, action, destructive, editable, field, act }

    function accept() {
        const text = field.text;
        close();
        question.act(text);
    }

    parent: T.Overlay.overlay
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    padding: Theme.inset
    width: Math.min(parent ? parent.width - 32 : 0, Math.round((question.editable ? 420 : 320) * Theme.scale))
    implicitHeight: contentHeight + 2 * padding
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - implicitHeight) / 3) : 0
    onOpened: question.editable ? field.forceActiveFocus(Qt.PopupFocusReason) : cancel.forceActiveFocus(Qt.TabFocusReason)
    onClosed: destroy()

    T.Overlay.modal: Rectangle {
        color: Theme.shade
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.dialog
        border.width: 1
        border.color: Theme.separator
    }
    contentItem: Column { // qmllint disable deferred-property-id
        spacing: 10
        Accessible.role: Accessible.Dialog
        Accessible.name: popup.question.heading
        Accessible.description: popup.question.words ?? ""

        Text {
            width: parent.width
            text: popup.question.heading
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            color: Theme.text
            font.pixelSize: Theme.body
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            width: parent.width
            visible: text !== ""
            text: popup.question.words ?? ""
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            color: Theme.text
            font.pixelSize: Theme.small
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        FilterField {
            id: field

            width: parent.width
            visible: popup.question.editable ?? false
            placeholderText: popup.question.heading
            text: popup.question.field ?? ""
            Keys.onEscapePressed: popup.close()
            Keys.onReturnPressed: popup.accept()
            Keys.onEnterPressed: popup.accept()
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 12

            TextButton {
                id: cancel
                text: qsTr("Cancel")
                onClicked: popup.close()
            }
            TextButton {
                text: popup.question.action
                destructive: popup.question.destructive ?? false
                strong: true
                onClicked: popup.accept()
            }
        }
    }
}
