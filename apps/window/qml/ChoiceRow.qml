import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// One of the choices of a setting.
KeyRow {
    id: entry

    required property string title
    required property bool ticked
    required property int choice
    required property string profile  // that it is; empty: none
    required property PageModel page

    // For the way to a profile, also beside an entry that is none.
    readonly property real room: page.choices.leads && page.tools ? details.width : 0

    function stops(): var {
        return details.visible ? [button, details] : [button];
    }

    // Shows again what the page has ticked: it may have refused.
    function pick() {
        page.select(choice);
        button.checked = Qt.binding(() => entry.ticked);
    }

    height: face.implicitHeight

    T.RadioButton {
        id: button

        x: Theme.sideOf(entry.width)
        width: parent.width - 2 * x
        height: parent.height
        autoExclusive: false
        focusPolicy: Qt.ClickFocus
        text: entry.title
        checked: entry.ticked
        onClicked: entry.pick()
        Keys.onReturnPressed: entry.pick()
        Keys.onEnterPressed: entry.pick()
        Accessible.name: text
        Accessible.focusable: true
        Accessible.onPressAction: entry.pick()
        Accessible.onToggleAction: entry.pick()

        ChoiceFace {
            id: face

            anchors.fill: parent
            title: entry.title
            room: Theme.unit(26) + entry.room
            first: entry.index === 0
            last: entry.index === entry.ListView.view.count - 1
            pressed: button.down
            hovered: button.hovered
        }
        Tick {
            anchors.right: parent.right
            anchors.rightMargin: Theme.inset + entry.room
            anchors.verticalCenter: parent.verticalCenter
            visible: entry.ticked
        }
        FocusRing {
            of: button
        }
        DetailsButton {
            id: details

            anchors.right: parent.right
            anchors.rightMargin: 4
            height: parent.height
            visible: entry.profile !== "" && entry.page.tools !== null
            text: qsTr("Details of %1").arg(entry.title)
            onClicked: entry.page.tools.profileWanted(entry.profile)
        }
    }
}
