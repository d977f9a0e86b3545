import QtQuick

// A button of the bar, with an icon.
PressButton {
    id: button

    width: Theme.barHeight * 0.9
    height: Theme.barHeight
    focusPolicy: Qt.TabFocus
    opacity: down ? Theme.faded : 1

    FocusRing {
        of: button
    }
}
