import QtQuick
import QtQuick.Templates as T

// A button of the bar, with an icon.
T.AbstractButton {
    id: button

    width: Theme.barHeight * 0.9
    height: Theme.barHeight
    focusPolicy: Qt.TabFocus
    opacity: down ? 0.4 : 1
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Accessible.name: text
    Accessible.onPressAction: clicked()

    FocusRing {
        of: button
    }
}
