import QtQuick
import Quorvantis.Settings

// An entry of a list that leads to the profile that it names.
KeyRow {
    id: entry

    required property string title
    required property string profile
    required property PageModel page

    function stops(): var {
        return [button];
    }

    height: face.implicitHeight

    PressButton {
        id: button

        x: Theme.sideOf(entry.width)
        width: entry.width - 2 * x
        height: entry.height
        focusPolicy: Qt.ClickFocus
        text: entry.title
        onClicked: entry.page.tools?.profileWanted(entry.profile)
        Accessible.focusable: true

        ChoiceFace {
            id: face

            anchors.fill: parent
            title: entry.title
            room: chevron.width + 10
            first: entry.index === 0
            last: entry.index === entry.ListView.view.count - 1
            pressed: button.down
            hovered: button.hovered
        }
        Chevron {
            id: chevron

            anchors.right: parent.right
            anchors.rightMargin: Theme.inset - 2
            anchors.verticalCenter: parent.verticalCenter
        }
        FocusRing {
            of: button
        }
    }
}
