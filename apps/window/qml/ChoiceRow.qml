import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// One entry of a list of choices.
KeyRow {
    id: entry

    required property string title
    required property bool ticked
    required property int choice
    required property PageModel page

    readonly property bool first: index === 0
    readonly property bool last: index === ListView.view.count - 1

    readonly property string profile: page.tools ? page.profileAt(choice) : ""  // that it is, if any

    function stops(): var {
        return details.visible ? [button, details] : [button];
    }

    // Shows again what the page has ticked: it may have refused.
    function pick() {
        page.select(choice);
        button.checked = Qt.binding(() => entry.ticked);
        if (profile !== "" && !page.stores())
            page.tools.profileWanted(profile);
    }

    height: Math.max(Theme.rowHeight, name.implicitHeight + 20)

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

        CardFace {
            anchors.fill: parent
            first: entry.first
            last: entry.last
            pressed: button.down
            hovered: button.hovered
        }
        Text {
            id: name

            anchors.left: parent.left
            anchors.leftMargin: Theme.inset
            anchors.right: parent.right
            anchors.rightMargin: Theme.inset + Theme.unit(26) + (details.visible ? details.width : 0)
            anchors.verticalCenter: parent.verticalCenter
            text: entry.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 4
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.body
        }
        Tick {
            anchors.right: parent.right
            anchors.rightMargin: Theme.inset + (details.visible ? details.width : 0)
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
            visible: entry.profile !== ""
            text: qsTr("Details of %1").arg(entry.title)
            onClicked: entry.page.tools.profileWanted(entry.profile)
        }
    }
}
