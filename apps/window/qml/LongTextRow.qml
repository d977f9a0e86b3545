import QtQuick
import QtQuick.Templates as T

// Several lines of text to edit, stored when the user leaves it.
CardRow {
    id: card

    control: area
    ring: area.activeFocus && area.byKeyboard
    contentHeight: Math.max(3 * Theme.rowHeight, area.implicitHeight)

    T.TextArea {
        id: area

        readonly property bool byKeyboard: focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason

        function commit() {
            if (text !== card.entry.value)
                card.page.setText(card.index, text);
            text = Qt.binding(() => card.entry.value);
        }

        anchors.fill: parent
        implicitHeight: contentHeight + 24
        padding: 12
        leftPadding: Theme.inset
        rightPadding: Theme.inset
        activeFocusOnTab: true
        visible: card.entry.built
        text: card.entry.value
        placeholderText: card.entry.placeholder
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.textOnAccent
        selectByMouse: true
        font.pixelSize: Theme.body
        onActiveFocusChanged: if (!activeFocus) commit()
        Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        Accessible.name: card.entry.label !== "" ? card.entry.label : card.entry.placeholder
        Accessible.description: card.entry.reason

        Text {
            x: area.leftPadding
            y: area.topPadding
            visible: area.text === ""
            text: area.placeholderText
            textFormat: Text.PlainText
            color: Theme.secondary
            font: area.font
            Accessible.ignored: true
        }
    }
}
