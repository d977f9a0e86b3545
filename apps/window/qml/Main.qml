pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// The window: the shown page, those it slides over, and the problems to report. Where it is wide and
// its first page only leads to others, that one stands at the left.
T.ApplicationWindow {
    id: window

    required property SettingsBridge settings
    property bool hasContents: false
    readonly property bool split: width >= Theme.wide && hasContents
    readonly property int firstDepth: split ? 2 : 1  // of a page that there is no way back from
    readonly property bool covered: settings.alert !== null || tools.open > 0 || help.active
    // Asked at the start, since it sees keys only from then on.
    readonly property bool usesKeyboard: KeyboardUse.active
    property bool instant: false                     // pages change without sliding

    // What is being edited is stored before its page is left.
    function commit() {
        nowhere.forceActiveFocus();
    }
    function back() {
        commit();
        if (stack.depth > firstDepth)
            settings.back();
    }
    function openFromContents(row: int) {
        const item = side.activeFocus ? activeFocusItem : null;
        commit();
        instant = true;
        settings.openFromContents(row);
        instant = false;
        item?.forceActiveFocus();
    }
    // Gives the keyboard back to the page that something has covered.
    function resume() {
        (stack.currentItem as PageView).resume();
    }
    // In a wide window there is always a page at the right.
    function fill() {
        if (!split || stack.depth !== 1)
            return;
        instant = true;
        settings.openSomething();
        instant = false;
    }
    function push(page: PageModel) {
        const depth = stack.depth + 1;
        const view = stack.push("PageView.qml", {
            page: page,
            byKeyboard: usesKeyboard && !instant
        }, depth > 1 && !instant ? T.StackView.PushTransition : T.StackView.Immediate);
        view.canGoBack = Qt.binding(() => depth > firstDepth);
        view.back.connect(back);
        if (!instant)
            view.forceActiveFocus();
    }

    width: 390
    height: Math.min(844, Screen.desktopAvailableHeight - 60)
    minimumWidth: 320
    minimumHeight: 480
    visible: true
    title: settings.shown ? settings.shown.title : ""
    color: Theme.background

    onSplitChanged: if (stack.depth > 0) fill()
    Component.onCompleted: {
        instant = true;
        settings.announce();
        instant = false;
        stack.currentItem?.forceActiveFocus();
        hasContents = settings.contents !== null;
        fill();
    }
    onClosing: commit()

    Connections {
        target: window.settings

        function onPushed(page) {
            window.push(page);
        }
        function onAlertShown(alert) {
            window.commit();
            const popup = Qt.createComponent(alert.sheet ? "SheetPopup.qml" : "AlertPopup.qml").createObject(window, { alert: alert });
            popup.top = Qt.binding(() => above.height);
            if (alert.sheet)
                popup.page = Qt.binding(() => stack.currentItem as PageView);
            popup.closed.connect(() => {
                if (window && !window.covered)
                    window.resume();
            });
            popup.open();
        }
        function onPopped(shown) {
            const view = stack.find(item => item.page === shown);
            stack.pop(view, window.instant ? T.StackView.Immediate : T.StackView.PopTransition);
            if (!window.instant)
                stack.currentItem.forceActiveFocus();
        }
    }

    Shortcut {
        sequences: (window.settings.undo.text === "" ? ["Esc"] : []).concat(["Backspace", "Alt+Left", "Back"])
        enabled: stack.depth > window.firstDepth && !window.covered
        onActivated: window.back()
    }
    Shortcut {
        sequences: ["Ctrl+Q", "Ctrl+W"]
        context: Qt.ApplicationShortcut
        onActivated: window.close()
    }
    Shortcut {
        sequences: ["F1"]
        enabled: !window.covered
        onActivated: help.active = true
    }

    // Also while a view lies over the pages.
    Shortcut {
        sequences: ["Ctrl+Z"]
        context: Qt.ApplicationShortcut
        enabled: !window.settings.alert && !tools.asking && !help.active
        onActivated: window.settings.undo.undo()
    }
    Shortcut {
        sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]
        context: Qt.ApplicationShortcut
        enabled: !window.settings.alert && !tools.asking && !help.active
        onActivated: window.settings.undo.redo()
    }
    // Above what covers the window.
    T.Popup {
        id: above

        parent: T.Overlay.overlay
        z: 1
        width: window.width
        height: visible ? contentHeight : 0
        padding: 0
        visible: (window.settings.alert !== null || tools.covering || help.active) && window.settings.problems.length > 0
        closePolicy: T.Popup.NoAutoClose

        contentItem: Loader { // qmllint disable deferred-property-id
            id: noticesAbove
        }
        onAboutToShow: noticesAbove.setSource("Notices.qml", { settings: window.settings }) // qmllint disable deferred-property-id
    }
    T.Popup {
        id: aboveViews

        parent: T.Overlay.overlay
        z: 1
        y: window.height - height
        width: window.width
        height: visible ? contentHeight : 0
        padding: 0
        visible: tools.covering && !tools.asking && window.settings.undo.text !== ""
        closePolicy: T.Popup.NoAutoClose

        contentItem: Loader { // qmllint disable deferred-property-id
            id: undoAbove
        }
        onAboutToShow: undoAbove.setSource("UndoBar.qml", { undo: window.settings.undo }) // qmllint disable deferred-property-id
        onClosed: undoAbove.source = "" // qmllint disable deferred-property-id
    }

    Binding {
        target: Theme
        property: "broad"
        value: window.width >= Theme.wide
    }
    Item {
        id: nowhere
    }
    Loader {
        id: recovery

        function load() {
            if (active)
                setSource("RecoveryNotice.qml", { recovery: window.settings.recovery });
        }

        width: parent.width
        height: active ? implicitHeight : 0
        active: window.settings.recovery.damaged
        onActiveChanged: load()
        Component.onCompleted: load()
    }
    Loader {
        id: help

        active: false
        source: "HelpPopup.qml"
        onLoaded: {
            const popup = item as HelpPopup;
            popup.top = Qt.binding(() => above.height);
            popup.closed.connect(() => {
                if (help)
                    help.active = false;
            });
        }
    }
    TruncatedHint {}
    Loader {
        id: side

        function load() {
            if (active)
                setSource("SidebarView.qml", { settings: window.settings });
        }

        anchors.bottom: undoBar.top
        anchors.top: recovery.bottom
        width: window.split ? Math.round(Math.min(Theme.unit(280), window.width * 0.4)) : 0
        active: window.split
        onActiveChanged: load()
        onLoaded: (item as SidebarView).chosen.connect(window.openFromContents)
        Keys.onPressed: event => event.accepted = tools.type(event.text, event.modifiers)
        Component.onCompleted: load()
    }
    LazyPart {
        id: banners

        anchors.bottom: parent.bottom
        width: parent.width
        visible: !above.visible
        height: visible ? (item as Item)?.implicitHeight ?? 0 : 0
        wanted: window.settings.problems.length > 0
        file: "Notices.qml"
        values: ({ settings: window.settings })
    }
    LazyPart {
        id: undoBar

        anchors.bottom: banners.top
        width: parent.width
        wanted: window.settings.undo.text !== ""
        file: "UndoBar.qml"
        values: ({ undo: window.settings.undo })
        onLoaded: (item as UndoBar).covered = Qt.binding(() => window.covered)
    }

    T.StackView {
        id: stack

        anchors.fill: parent
        anchors.topMargin: recovery.height
        anchors.leftMargin: side.width
        anchors.bottomMargin: banners.height + undoBar.height
        focus: true
        clip: true
        Keys.onPressed: event => event.accepted = depth <= window.firstDepth && tools.type(event.text, event.modifiers)

        pushEnter: Transition { NumberAnimation { property: "x"; from: stack.width; to: 0; duration: Theme.slide; easing.type: Easing.OutCubic } }
        pushExit: Transition { NumberAnimation { property: "x"; from: 0; to: -stack.width * 0.3; duration: Theme.slide; easing.type: Easing.OutCubic } }
        popEnter: Transition { NumberAnimation { property: "x"; from: -stack.width * 0.3; to: 0; duration: Theme.slide; easing.type: Easing.OutCubic } }
        popExit: Transition { NumberAnimation { property: "x"; from: 0; to: stack.width; duration: Theme.slide; easing.type: Easing.OutCubic } }
    }

    ToolViews {
        id: tools

        anchors.fill: parent
        settings: window.settings
        above: above.height
        below: aboveViews.height
        onLeaving: window.commit()
        onDone: window.resume()
        onHelpWanted: help.active = true
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton
        enabled: stack.depth > window.firstDepth
        onClicked: window.back()
    }
}
