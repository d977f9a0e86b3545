import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A question, with a text to edit where it asks for one. The keyboard is in that text, else on the
// button that does nothing.
PopupBase {
    id: popup

    required property var question  // { heading, words, action, destructive, editable, field, act }

    function accept() {
        const text = field.text;
        close();
        question.act(text);
    }

    closePolicy: T.Popup.CloseOnEscape
    padding: Theme.inset
    width: Math.min(parent ? parent.width - 32 : 0, Theme.unit(question.editable ? 420 : 320))
    onOpened: question.editable ? field.forceActiveFocus(Qt.PopupFocusReason) : cancel.forceActiveFocus(Qt.TabFocusReason)
    onClosed: destroy()

    contentItem: ScrollColumn { // qmllint disable deferred-property-id
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
        InputField {
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
