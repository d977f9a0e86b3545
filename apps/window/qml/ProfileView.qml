pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// One profile: what can be done with it, what a load would change, and its values.
ToolView {
    id: view

    readonly property ProfileTool profile: tools.profiles.opened
    property string note  // what was done last

    // A question may be answered when the view is closed already.
    function rename() {
        const opened = profile;
        tools.questionAsked({ heading: qsTr("Rename Description"), action: qsTr("Rename"), field: profile.description, editable: true,
            act: text => { if (opened.describe(text) && view) view.note = qsTr("Renamed."); } });
    }
    function exportFile() {
        const opened = profile;
        tools.questionAsked({ heading: qsTr("Export"), words: qsTr("As a property list, to this file:"), action: qsTr("Export"), editable: true,
            field: tools.profiles.suggestedFolder() + profile.title + ".plist",
            act: text => opened.exportTo(text, false) });
    }
    function remove() {
        const opened = profile;
        tools.questionAsked({ heading: qsTr("Delete %1?").arg(profile.title), words: qsTr("Its file is removed."), action: qsTr("Delete"), destructive: true,
            act: () => { if (opened.remove()) view?.done(); } });
    }
    function compareMenu() {
        const opened = profile;
        const entries = [{ text: qsTr("The current settings"), usable: true, act: () => opened.compareWith("") }];
        tools.profiles.look();
        for (const saved of tools.profiles.saved)
            if (saved.path !== opened.path)
                entries.push({ text: saved.description === "" ? saved.title : saved.title + " - " + saved.description, usable: true, act: () => opened.compareWith(saved.path) });
        tools.menuWanted(entries, comparing);
    }

    heading: profile.title

    Connections {
        target: view.profile

        function onExported(file) {
            view.note = qsTr("Exported to %1").arg(file);
        }
    }
    Connections {
        target: view.tools

        function onStoredChanged() {
            view.note = "";
            if (!view.profile.look())
                view.done();
        }
    }
    ScrollColumn {
        anchors.fill: parent
        bottomMargin: 24
        spacing: 8

        Text {
            x: Theme.sideOf(parent.width) + Theme.inset
            width: parent.width - 2 * x
            visible: text !== ""
            text: view.note !== "" ? view.note : view.profile.description
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            color: Theme.secondary
            font.pixelSize: Theme.body
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Flow {
            id: buttons

            x: Math.max(Theme.sideOf(parent.width), (parent.width - childrenRect.width) / 2)
            width: parent.width - 2 * Theme.sideOf(parent.width)

            TextButton {
                id: comparing

                focus: true
                text: qsTr("Compare With…")
                onClicked: view.compareMenu()
            }
            TextButton {
                text: qsTr("Rename…")
                onClicked: view.rename()
            }
            TextButton {
                text: qsTr("Export…")
                onClicked: view.exportFile()
            }
            TextButton {
                text: qsTr("Delete…")
                destructive: true
                onClicked: view.remove()
            }
            TextButton {
                text: qsTr("Load")
                strong: true
                onClicked: if (view.profile.load()) view.note = qsTr("Loaded.")
            }
        }
        ValueList {
            width: parent.width
            heading: view.profile.other === "" ? qsTr("A load would change") : qsTr("Different in %1").arg(view.profile.other)
            values: view.profile.differences
            empty: view.profile.failed ? qsTr("It can't be compared.") : view.profile.other === "" ? qsTr("Nothing: the settings are like this already.") : qsTr("Nothing: both are alike.")
            footer: view.profile.alike === 0 || view.profile.other !== "" ? "" : view.profile.alike === 1 ? qsTr("One value is stored differently, but shows the same.") : qsTr("%1 values are stored differently, but show the same.").arg(view.profile.alike)
        }
        ValueList {
            width: parent.width
            heading: qsTr("Values")
            values: view.profile.values
        }
    }
}
