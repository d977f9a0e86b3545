import QtQuick
import QtQuick.Templates as T

// A number that can be typed, stored by Return or when the field is left. Transparent above the
// number as shown until it is edited. Return with a number that the row can't take stays here.
T.TextField {
    id: field

    required property CardRow owner
    property string shown

    signal done

    function store(): bool {
        return text === shown || owner.page.setTypedNumber(owner.index, text);
    }

    // Whether a key begins a number.
    function takes(key: KeyEvent): bool {
        const command = Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier;
        return visible && (key.modifiers & command) === 0 && key.text.length === 1 && "0123456789.,-".includes(key.text);
    }
    // Begins with this text, or with the number that is shown.
    function edit(begin: string) {
        if (!visible)
            return;
        forceActiveFocus(Qt.OtherFocusReason);
        if (begin !== "")
            text = begin;
    }

    implicitWidth: Math.max(activeFocus ? 84 : 44, contentWidth + leftPadding + rightPadding)
    implicitHeight: Math.round(Theme.body * 1.9)
    leftPadding: 10
    rightPadding: 10
    horizontalAlignment: TextInput.AlignRight
    verticalAlignment: TextInput.AlignVCenter
    activeFocusOnTab: false
    selectByMouse: true
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    text: shown
    color: activeFocus ? Theme.text : "transparent"
    selectionColor: Theme.accent
    selectedTextColor: "#FFFFFF"
    font.pixelSize: Theme.body
    validator: RegularExpressionValidator {
        regularExpression: /-?[0-9]*[.,]?[0-9]*/
    }
    onAccepted: store() ? done() : selectAll()
    onActiveFocusChanged: {
        if (activeFocus)
            return selectAll();
        store();
        text = Qt.binding(() => shown);
    }
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
    Keys.onEscapePressed: {
        text = Qt.binding(() => shown);
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
