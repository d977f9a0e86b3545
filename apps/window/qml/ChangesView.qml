pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// What differs from the defaults, page by page, and its reset.
ToolView {
    id: view

    property string pageClass  // empty: all pages

    readonly property ChangesTool changes: tools.changes
    readonly property bool all: pageClass === ""

    heading: all || changes.page === "" ? qsTr("Changed Settings") : qsTr("Changed in %1").arg(changes.page)
    Component.onCompleted: changes.look(pageClass)

    Connections {
        target: view.tools

        function onStoredChanged() {
            view.changes.look(view.pageClass);
        }
    }
    NoticeView {
        anchors.fill: list
        visible: list.count === 0
        title: view.changes.failed ? qsTr("The settings can't be read") : qsTr("Nothing is changed")
        detail: view.changes.failed ? "" : view.all ? qsTr("Every setting has its default.") : qsTr("Every setting of this page has its default.")
    }
    EntryList {
        id: list

        anchors.fill: parent
        anchors.bottomMargin: actions.height
        heading: view.heading
        model: EntryModel {
            key: "key"
            entries: view.changes.settings
        }

        delegate: Column {
            id: item

            required property int index
            required property changedSetting entry

            width: list.width

            Item {
                width: parent.width
                height: visible ? Math.max(Theme.rowHeight, heading.height + 20) : 0
                visible: item.entry.first

                Text {
                    id: heading

                    x: Theme.sideOf(parent.width) + Theme.inset
                    width: (reset.visible ? reset.x : parent.width - Theme.inset) - x
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 8
                    text: item.entry.page
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: Theme.secondary
                    font.pixelSize: Theme.small
                    font.weight: Font.DemiBold
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                TextButton {
                    id: reset

                    anchors.right: parent.right
                    anchors.rightMargin: Theme.sideOf(parent.width)
                    anchors.bottom: parent.bottom
                    visible: view.all
                    text: qsTr("Reset…")
                    Accessible.description: item.entry.page
                    onClicked: view.tools.changesWanted(item.entry.pageClass)
                }
            }
            EntryRow {
                width: parent.width
                label: item.entry.label
                value: item.entry.shown === "" ? qsTr("empty") : item.entry.shown
                detail: !item.entry.resettable ? qsTr("No default") : item.entry.standard === "" ? qsTr("Default: empty") : qsTr("Default: %1").arg(item.entry.standard)
                first: item.entry.first
                last: item.entry.last
                onChosen: view.changes.open(item.index)
            }
        }
    }
    ViewActions {
        id: actions

        anchors.bottom: parent.bottom
        visible: view.changes.resettable > 0

        TextButton {
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width)
            destructive: true
            strong: true
            text: view.changes.resettable === 1 ? qsTr("Reset This Setting") : qsTr("Reset These %1 Settings").arg(view.changes.resettable)
            onClicked: {
                view.changes.reset();
                list.forceActiveFocus();
            }
        }
    }
}
