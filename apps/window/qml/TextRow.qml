import QtQuick
import QtQuick.Templates as T

// A text to edit, stored when the user is done with it: beside its label while both fit there, else
// below it; it wraps where it is longer than the row. A text of several lines shows no label.
CardRow {
    id: card

    required property string kind

    readonly property bool several: kind === "longtext"
    readonly property bool titled: entry.label !== "" && !several
    readonly property real free: width - 2 * side - 2 * Theme.inset
    readonly property bool below: titled && labelSize.advanceWidth + 13 + Math.max(Theme.unit(80), textSize.advanceWidth + 4) > free
    readonly property real textHeight: area.activeFocus ? area.contentHeight + 2 * area.topPadding : shown.implicitHeight

    control: area
    contentHeight: Math.max((several ? 3 : 1) * Theme.rowHeight, (below ? 10 + label.height : 0) + textHeight)

    TextMetrics {
        id: labelSize
        text: label.text
        font: label.font
    }
    TextMetrics {
        id: textSize
        text: shown.text
        font: area.font
    }
    Text {
        id: label

        x: Theme.inset
        y: card.below ? 10 : (parent.height - height) / 2
        width: Math.min(card.free, Math.ceil(labelSize.advanceWidth) + 1)
        visible: card.titled
        text: card.entry.label
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
        color: Theme.text
        font.pixelSize: Theme.body
    }

    T.TextArea {
        id: area

        property string begun: card.entry.value  // what stood there when editing began
        property string untouched                // how the editor shows that

        readonly property bool onFirstLine: cursorRectangle.y <= positionToRectangle(0).y
        readonly property bool onLastLine: cursorRectangle.y >= positionToRectangle(length).y

        function show() {
            if (activeFocus)
                begun = card.entry.value;
            else
                begun = Qt.binding(() => card.entry.value);
            text = Qt.binding(() => begun);
            untouched = text;
        }
        // An editor shows some characters as others; a text that nobody edited stays as it is.
        function commit() {
            if (text !== untouched)
                card.page.setText(card.index, card.several ? text : text.replace(/\s*\n\s*/g, " "));
            show();
        }

        x: card.titled && !card.below ? label.x + label.width + 12 : Theme.inset
        y: card.below ? label.y + label.height : 0
        width: card.free + Theme.inset - x
        height: parent.height - y
        topPadding: card.below ? 6 : 12
        bottomPadding: topPadding
        activeFocusOnTab: false
        horizontalAlignment: card.titled && !card.below ? TextInput.AlignRight : TextInput.AlignLeft
        verticalAlignment: card.several ? TextInput.AlignTop : TextInput.AlignVCenter
        text: begun
        placeholderText: card.entry.placeholder
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        inputMethodHints: card.entry.inputHints
        color: activeFocus ? Theme.text : "transparent"
        selectionColor: Theme.accent
        selectedTextColor: Theme.textOnAccent
        selectByMouse: true
        font.pixelSize: Theme.body
        onActiveFocusChanged: {
            if (!activeFocus)
                return commit();
            show();
            if (focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason)
                cursorPosition = length;
        }
        Keys.onTabPressed: card.tabbed(1)
        Keys.onBacktabPressed: card.tabbed(-1)
        Keys.onPressed: event => {
            event.accepted = !(event.modifiers & Qt.ShiftModifier) && (event.key === Qt.Key_Up && onFirstLine || event.key === Qt.Key_Down && onLastLine);
            if (event.accepted)
                card.tabbed(event.key === Qt.Key_Up ? -1 : 1);
        }
        Keys.onReturnPressed: event => {
            event.accepted = !card.several;
            if (!card.several)
                commit();
        }
        Keys.onEnterPressed: event => {
            event.accepted = !card.several;
            if (!card.several)
                commit();
        }
        Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape && text !== untouched
        Keys.onEscapePressed: event => {
            event.accepted = text !== untouched;
            show();
        }
        Accessible.name: card.entry.label !== "" ? card.entry.label : card.entry.placeholder
        Accessible.description: card.remarks

        // Stands in for the text while it isn't edited, since an editor can't end in an ellipsis.
        Text {
            id: shown

            readonly property bool empty: area.text === "" && area.preeditText === ""

            y: area.verticalAlignment === TextInput.AlignTop ? 0 : (parent.height - height) / 2
            width: parent.width
            topPadding: area.topPadding
            bottomPadding: area.bottomPadding
            horizontalAlignment: area.horizontalAlignment
            visible: empty || !area.activeFocus
            text: empty ? area.placeholderText : area.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: card.several ? 12 : 4
            elide: Text.ElideRight
            color: card.faint
            font: area.font
            Accessible.ignored: true
        }
    }
}
