import QtQuick
import QtQuick.Templates as T

// A number that can be typed, stored by Return or when the field is left. Transparent above the
// number as shown until it is edited. Keys don't leave a number that the row can't take.
T.TextField {
    id: field

    required property CardRow owner
    property string shown
    property string begun: shown  // what stood there when editing began

    signal done

    function store(): bool {
        if (text !== begun && !owner.page.setTypedNumber(owner.index, text))
            return false;
        begun = text;
        return true;
    }

    // Whether a key begins a number.
    function takes(key: KeyEvent): bool {
        const command = Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier;
        return visible && (key.modifiers & command) === 0 && key.text.length === 1 && "0123456789.,-".includes(key.text);
    }
    function show() {
        if (activeFocus)
            begun = shown;
        else
            begun = Qt.binding(() => shown);
        text = Qt.binding(() => begun);
    }
    // Begins with this text, or with the number that is shown.
    function edit(begin: string) {
        if (!visible)
            return;
        forceActiveFocus(Qt.OtherFocusReason);
        if (begin !== "")
            text = begin;
    }

    implicitWidth: Math.max(Theme.unit(activeFocus ? 84 : 44), contentWidth + leftPadding + rightPadding)
    implicitHeight: Math.round(Theme.body * 1.9)
    leftPadding: 10
    rightPadding: 10
    horizontalAlignment: TextInput.AlignRight
    verticalAlignment: TextInput.AlignVCenter
    activeFocusOnTab: false
    selectByMouse: true
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    text: begun
    color: activeFocus ? Theme.text : "transparent"
    selectionColor: Theme.accent
    selectedTextColor: Theme.textOnAccent
    font.pixelSize: Theme.body
    validator: RegularExpressionValidator {
        regularExpression: /-?[0-9]*[.,]?[0-9]*/
    }
    onAccepted: store() ? done() : selectAll()
    Keys.onPressed: event => {
        const leaves = [Qt.Key_Tab, Qt.Key_Backtab, Qt.Key_Up, Qt.Key_Down, Qt.Key_PageUp, Qt.Key_PageDown];
        event.accepted = leaves.includes(event.key) && !store();
        if (event.accepted)
            selectAll();
    }
    onActiveFocusChanged: {
        if (activeFocus) {
            begun = shown;
            return selectAll();
        }
        store();
        show();
    }
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
    Keys.onEscapePressed: {
        show();
        done();
    }

    background: Rectangle {
        visible: field.activeFocus
        radius: 7
        color: Theme.background
        border.width: 2
        border.color: Theme.accentText
    }
}
