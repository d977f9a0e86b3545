import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// Shows the views of the tools over the pages when they are wanted. None is made before.
Item {
    id: views

    required property SettingsBridge settings
    readonly property Tools tools: settings.tools
    property int open: 0            // how many views and menus are shown
    property bool asking: false     // a question is one of them
    property bool choosing: false   // a menu is one of them
    readonly property bool covering: open > (choosing ? 1 : 0)
    property real above: 0          // what stands above the views in the window
    property real below: 0

    signal leaving  // a view is about to be shown
    signal done     // the last one was closed
    signal helpWanted

    // Begins a search where the user types on the first page.
    function type(text: string, modifiers: int): bool {
        const printable = text.length === 1 && text > " " && text !== "\x7f";
        if (!tools || settings.alert || !printable || (modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)))
            return false;
        show("SearchView.qml", { words: text });
        return true;
    }
    function make(file: string, properties: var): T.Popup {
        if (open === 0)
            leaving();
        const popup = Qt.createComponent(file).createObject(views, properties) as T.Popup;
        popup.top = Qt.binding(() => above);
        ++open;
        popup.closed.connect(() => {
            if (views && --views.open === 0)
                views.done();
        });
        popup.open();
        return popup;
    }
    function show(file: string, values: var) {
        const popup = make("ToolPopup.qml", { tools: tools, file: Qt.resolvedUrl(file), values: values });
        popup.bottom = Qt.binding(() => below);
    }
    function menu(entries: var, at: Item) {
        if (!entries.some(entry => entry.usable))
            return;
        choosing = true;
        make("MenuPopup.qml", { entries: entries, at: at }).closed.connect(() => {
            if (views)
                views.choosing = false;
        });
    }
    function ask(question: var) {
        asking = true;
        make("AskPopup.qml", { question: question }).closed.connect(() => {
            if (views)
                views.asking = false;
        });
    }
    function importFile() {
        ask({ heading: qsTr("Import"), words: qsTr("A profile from this file, a property list:"), action: qsTr("Import"), editable: true,
            field: tools.profiles.suggestedFolder(), act: file => tools.profiles.importFile(file, false) });
    }

    Shortcut {
        sequence: "Ctrl+F"
        enabled: views.tools && !views.settings.alert && views.open === 0
        onActivated: views.show("SearchView.qml", {})
    }
    DropArea {
        anchors.fill: parent
        enabled: views.tools
        keys: ["text/uri-list"]
        onDropped: drop => {
            if (drop.hasUrls && !views.settings.alert && !views.asking)
                views.tools.profiles.importUrls(drop.urls);
        }
    }
    Connections {
        target: views.tools

        function onSearchWanted(words) {
            views.show("SearchView.qml", { words: words });
        }
        function onChangesWanted(pageClass) {
            views.show("ChangesView.qml", { pageClass: pageClass });
        }
        function onProfilesWanted() {
            views.show("ProfilesView.qml", {});
        }
        function onProfileWanted(path) {
            if (views.tools.profiles.opened.open(path))
                views.show("ProfileView.qml", {});
        }
        function onImportWanted() {
            views.importFile();
        }
        function onMenuWanted(entries, at) {
            views.menu(entries, at);
        }
        function onQuestionAsked(question) {
            views.ask(question);
        }
        function onRowMenuWanted(page, row, at) {
            const entry = page.rows.row(row), tools = views.tools;
            const reset = entry.standard === "" ? qsTr("Reset to Default") : qsTr("Reset to Default (%1)").arg(entry.standard);
            views.menu([
                { text: reset, usable: entry.resettable, act: () => tools.resetRow(entry.key) },
                { text: qsTr("Copy Value"), usable: entry.shown !== "", act: () => tools.copy(entry.shown) },
                { text: qsTr("Copy Key"), usable: entry.key !== "", act: () => tools.copy(entry.key) }
            ], at);
        }
        function onPageMenuWanted(page, at) {
            const tools = views.tools, pageClass = page.pageClass;
            const undo = views.settings.undo, undone = undo.nextUndo(), redone = undo.nextRedo();
            views.menu([
                { text: qsTr("Search…"), usable: true, act: () => tools.searchWanted("") },
                { text: qsTr("Changed on This Page…"), usable: page.rows !== null, act: () => tools.changesWanted(pageClass) },
                { text: qsTr("All Changed Settings…"), usable: true, act: () => tools.changesWanted("") },
                { text: qsTr("Saved Profiles…"), usable: true, act: () => tools.profilesWanted() },
                { text: undone === "" ? qsTr("Undo") : qsTr("Undo: %1").arg(undone), usable: undone !== "", act: () => undo.undo() },
                { text: redone === "" ? qsTr("Redo") : qsTr("Redo: %1").arg(redone), usable: redone !== "", act: () => undo.redo() },
                { text: qsTr("Keys"), usable: true, act: () => views.helpWanted() }
            ], at);
        }
    }
    Connections {
        target: views.tools?.profiles.opened ?? null

        function onReplaceWanted(file) {
            const opened = views.tools.profiles.opened;
            views.ask({ heading: qsTr("Replace This File?"), words: file, action: qsTr("Replace"), destructive: true,
                act: () => opened.exportTo(file, true) });
        }
    }
    Connections {
        target: views.tools?.profiles ?? null

        function onReplaceWanted(file, title) {
            const tools = views.tools;
            views.ask({ heading: qsTr("Replace %1?").arg(title), words: qsTr("There is a profile for this trigger already."), action: qsTr("Replace"), destructive: true,
                act: () => tools.profiles.importFile(file, true) });
        }
    }
}
