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
        model: view.changes.settings

        delegate: Column {
            id: item

            required property int index
            required property changedSetting modelData

            width: list.width

            Item {
                width: parent.width
                height: visible ? Theme.rowHeight : 0
                visible: item.modelData.first

                Text {
                    x: Theme.sideOf(parent.width) + Theme.inset
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 8
                    text: item.modelData.page
                    textFormat: Text.PlainText
                    color: Theme.secondary
                    font.pixelSize: Theme.small
                    font.weight: Font.DemiBold
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                TextButton {
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.sideOf(parent.width)
                    anchors.bottom: parent.bottom
                    visible: view.all
                    text: qsTr("Reset…")
                    Accessible.description: item.modelData.page
                    onClicked: view.tools.changesWanted(item.modelData.pageClass)
                }
            }
            EntryRow {
                width: parent.width
                label: item.modelData.label
                value: item.modelData.shown === "" ? qsTr("empty") : item.modelData.shown
                detail: !item.modelData.resettable ? qsTr("No default") : item.modelData.standard === "" ? qsTr("Default: empty") : qsTr("Default: %1").arg(item.modelData.standard)
                first: item.modelData.first
                last: item.modelData.last
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
            destructive: true
            strong: true
            text: view.changes.resettable === 1 ? qsTr("Reset This Setting") : qsTr("Reset These %1 Settings").arg(view.changes.resettable)
            onClicked: view.changes.reset()
        }
    }
}
