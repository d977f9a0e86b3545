import QtQuick
import QtQuick.Templates as T

// A text to edit that isn't shown, stored when the user is done with it.
CardRow {
    id: card

    readonly property bool titled: entry.label !== ""

    control: field

    Text {
        id: label

        x: Theme.inset
        width: Math.min(implicitWidth, (parent.width - 2 * x) * 0.5)
        anchors.verticalCenter: parent.verticalCenter
        visible: card.titled
        text: card.entry.label
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: Theme.text
        font.pixelSize: Theme.body
    }

    T.TextField {
        id: field

        property string begun: card.entry.value  // what stood there when editing began

        function show() {
            if (activeFocus)
                begun = card.entry.value;
            else
                begun = Qt.binding(() => card.entry.value);
            text = Qt.binding(() => begun);
        }
        function commit() {
            if (text !== begun)
                card.page.setText(card.index, text);
            show();
        }

        anchors.left: card.titled ? label.right : parent.left
        anchors.leftMargin: card.titled ? 12 : Theme.inset
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        activeFocusOnTab: false
        horizontalAlignment: card.titled ? TextInput.AlignRight : TextInput.AlignLeft
        verticalAlignment: TextInput.AlignVCenter
        text: begun
        placeholderText: card.entry.placeholder
        echoMode: TextInput.Password
        inputMethodHints: card.entry.inputHints
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.textOnAccent
        selectByMouse: true
        font.pixelSize: Theme.body
        clip: true
        onActiveFocusChanged: {
            if (activeFocus)
                begun = card.entry.value;
            else
                show();
        }
        onEditingFinished: commit()
        Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape && text !== begun
        Keys.onEscapePressed: event => {
            event.accepted = text !== begun;
            show();
        }
        Accessible.name: card.entry.label !== "" ? card.entry.label : card.entry.placeholder
        Accessible.description: card.remarks

        Text {
            anchors.fill: parent
            horizontalAlignment: field.horizontalAlignment
            verticalAlignment: Text.AlignVCenter
            visible: field.text === "" && field.preeditText === ""
            text: field.placeholderText
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: card.faint
            font: field.font
            Accessible.ignored: true
        }
    }
}
