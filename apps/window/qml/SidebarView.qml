import QtQuick
import QtQuick.Templates as T
import Qt.labs.qmlmodels
import Quorvantis.Settings

// The first page beside the others: what it leads to, with what each of them says in a few words.
FocusScope {
    id: view

    required property SettingsBridge settings

    signal chosen(row: int)

    Rectangle {
        anchors.fill: parent
        color: Theme.bar
    }
    Rectangle {
        anchors.right: parent.right
        width: Theme.line
        height: parent.height
        color: Theme.separator
    }

    ListView {
        id: list

        // The nearest row in that direction that leads somewhere gets the keyboard focus.
        function move(direction: int): bool {
            const next = model.nextStop(currentIndex, direction);
            if (next < 0)
                return false;
            positionViewAtIndex(next, ListView.Contain);
            itemAtIndex(next).forceActiveFocus(direction > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
            return true;
        }

        anchors.fill: parent
        anchors.rightMargin: Theme.line
        focus: true
        clip: true
        model: view.settings.contents.rows
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 2000
        keyNavigationEnabled: false
        Component.onCompleted: currentIndex = view.settings.opened
        highlightFollowsCurrentItem: false
        topMargin: 8
        bottomMargin: 16
        T.ScrollBar.vertical: SlimScrollBar {}
        Keys.onDownPressed: event => event.accepted = move(1)
        Keys.onUpPressed: event => event.accepted = move(-1)
        Accessible.role: Accessible.List
        Accessible.name: view.settings.contents.title

        Connections {
            target: view.settings

            function onShownChanged() {
                if (!list.activeFocus)
                    list.currentIndex = view.settings.opened;
            }
        }

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice { roleValue: "group"; SidebarHeading {} }
            DelegateChoice {
                SidebarRow {
                    id: link

                    opened: view.settings.opened === link.index  // qmllint disable unqualified
                    onChosen: view.chosen(link.index)  // qmllint disable unqualified
                }
            }
        }
    }
}
