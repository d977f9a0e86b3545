import QtQuick
import QtQuick.Templates as T

// A number that can be typed. Transparent above the number as shown until it is edited.
T.TextField {
    id: field

    property string shown

    signal typed(string typed)
    signal done

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

    implicitWidth: Math.max(Theme.unit(activeFocus ? 84 : 44), contentWidth + leftPadding + rightPadding)
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
    selectedTextColor: Theme.textOnAccent
    font.pixelSize: Theme.body
    onActiveFocusChanged: if (activeFocus) selectAll()
    onEditingFinished: {
        if (text !== shown)
            typed(text);
        text = Qt.binding(() => shown);
        if (activeFocus)
            done();
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
