pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The saved profiles; each opens.
ToolView {
    id: view

    readonly property ProfilesTool profiles: tools.profiles

    heading: qsTr("Saved Profiles")
    Component.onCompleted: profiles.look()

    Connections {
        target: view.tools

        function onStoredChanged() {
            view.profiles.look();
        }
    }
    TriggerStrip {
        id: strip

        x: Theme.sideOf(view.width)
        y: 10
        width: view.width - 2 * x
        profiles: view.profiles
        onChosen: path => view.tools.profileWanted(path)
    }
    NoticeView {
        anchors.fill: list
        visible: list.count === 0
        title: view.profiles.failed ? qsTr("The profiles can't be read") : qsTr("No saved profiles")
        detail: view.profiles.failed ? "" : qsTr("A profile that is saved stands here. A file of one can be dropped here, too.")
    }
    EntryList {
        id: list

        anchors.fill: parent
        anchors.topMargin: strip.y + strip.height + 16
        anchors.bottomMargin: actions.height
        heading: view.heading
        model: EntryModel {
            key: "path"
            entries: view.profiles.saved
        }

        delegate: EntryRow {
            required property int index
            required property profileEntry entry

            width: list.width
            label: entry.title
            detail: entry.description
            value: entry.active ? "" : qsTr("not active")
            first: index === 0
            last: index === list.count - 1
            onChosen: view.tools.profileWanted(entry.path)
        }
    }
    ViewActions {
        id: actions

        anchors.bottom: parent.bottom

        TextButton {
            anchors.centerIn: parent
            text: qsTr("Import…")
            onClicked: view.tools.importWanted()
        }
    }
}
