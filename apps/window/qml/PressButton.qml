import QtQuick
import QtQuick.Templates as T

// What all buttons share: Return presses them as Space does, and so does assistive technology.
T.AbstractButton {
    focusPolicy: Qt.StrongFocus
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.name: text
    Accessible.onPressAction: clicked()
}
