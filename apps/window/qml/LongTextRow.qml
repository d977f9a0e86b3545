import QtQuick
import QtQuick.Templates as T

// Several lines of text to edit, stored when the user leaves it.
CardRow {
    id: card

    control: area
    contentHeight: Math.max(3 * Theme.rowHeight, area.implicitHeight)

    T.TextArea {
        id: area

        property string begun: card.entry.value  // what stood there when editing began

        function commit() {
            if (text !== begun)
                card.page.setText(card.index, text);
            begun = Qt.binding(() => card.entry.value);
            text = Qt.binding(() => begun);
        }

        anchors.fill: parent
        implicitHeight: contentHeight + 24
        padding: 12
        leftPadding: Theme.inset
        rightPadding: Theme.inset
        activeFocusOnTab: false
        text: begun
        placeholderText: card.entry.placeholder
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.textOnAccent
        selectByMouse: true
        font.pixelSize: Theme.body
        onActiveFocusChanged: {
            if (activeFocus)
                begun = card.entry.value;
            else
                commit();
        }
        Keys.onTabPressed: card.tabbed(1)
        Keys.onBacktabPressed: card.tabbed(-1)
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
