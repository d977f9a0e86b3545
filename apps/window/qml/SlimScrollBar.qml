import QtQuick
import QtQuick.Templates as T

// Where a view is scrolled to, at its right, while it moves and for a moment after.
T.ScrollBar {
    id: bar

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    padding: 2
    minimumSize: width / height

    contentItem: Rectangle { // qmllint disable deferred-property-id
        id: mark

        readonly property bool shown: bar.active && bar.size < 1

        implicitWidth: 6
        radius: width / 2
        color: bar.pressed ? Theme.secondary : Theme.edge
        opacity: 0
        onShownChanged: {
            if (shown)
                opacity = 0.75;
            fading.running = !shown;
        }

        SequentialAnimation {
            id: fading

            PauseAnimation { duration: 450 }
            NumberAnimation { target: mark; property: "opacity"; to: 0; duration: 200 }
        }
    }
}
