import QtQuick

// Marks the row that was looked for, and fades.
Rectangle {
    id: mark

    objectName: "found"
    radius: Theme.radius
    color: Qt.rgba(Theme.accentText.r, Theme.accentText.g, Theme.accentText.b, 0.16)
    border.width: 2
    border.color: Theme.accentText

    SequentialAnimation on opacity {
        PauseAnimation { duration: 3000 }
        NumberAnimation { to: 0; duration: 600 }
    }
}
