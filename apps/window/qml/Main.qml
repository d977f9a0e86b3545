pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvantis.Settings

// The window: the shown page, those it slides over, and the problems to report. Where it is wide and
// its first page only leads to others, that one stands at the left.
ApplicationWindow {
    id: window

    required property SettingsBridge settings
    property bool hasContents: false
    readonly property bool split: width >= Theme.wide && hasContents
    readonly property int firstDepth: split ? 2 : 1  // of a page that there is no way back from
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
        const reason = item?.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason;
        commit();
        instant = true;
        settings.openFromContents(row);
        instant = false;
        item?.forceActiveFocus(reason);
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
            byKeyboard: !instant && (activeFocusItem?.visualFocus ?? false)
        }, depth > 1 && !instant ? StackView.PushTransition : StackView.Immediate);
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
        settings.announce();
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
            const reason = window.activeFocusItem?.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason;
            window.commit();
            const popup = (alert.sheet ? sheet : plainAlert).createObject(window, { alert: alert });
            popup.closed.connect(() => {
                if (window && !window.settings.alert)
                    stack.currentItem.forceActiveFocus(reason);
            });
            popup.open();
        }
        function onPopped(shown) {
            const view = stack.find(item => item.page === shown);
            stack.pop(view, window.instant ? StackView.Immediate : StackView.PopTransition);
            if (!window.instant)
                stack.currentItem.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Shortcut {
        sequences: ["Esc", "Backspace", "Alt+Left", "Back"]
        enabled: stack.depth > window.firstDepth && !window.settings.alert
        onActivated: window.back()
    }
    Shortcut {
        sequences: ["Ctrl+Q", "Ctrl+W"]
        context: Qt.ApplicationShortcut
        onActivated: window.close()
    }
    Shortcut {
        sequences: ["F1"]
        enabled: !window.settings.alert
        onActivated: help.active = true
    }

    Component {
        id: sheet

        SheetPopup {
            page: stack.currentItem as PageView
        }
    }
    Component {
        id: plainAlert

        AlertPopup {}
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
        id: help

        active: false
        source: "HelpPopup.qml"
        onLoaded: (item as HelpPopup).closed.connect(() => active = false)
    }
    TruncatedHint {
        z: 10
    }
    Loader {
        id: side

        function load() {
            if (active)
                setSource("SidebarView.qml", { settings: window.settings });
        }

        anchors.bottom: banners.top
        anchors.top: parent.top
        width: window.split ? Math.round(Math.min(Theme.unit(280), window.width * 0.4)) : 0
        active: window.split
        onActiveChanged: load()
        onLoaded: (item as SidebarView).chosen.connect(window.openFromContents)
        Component.onCompleted: load()
    }
    Column {
        id: banners

        anchors.bottom: parent.bottom
        width: parent.width

        Repeater {
            model: window.settings.problems

            Banner {
                required property int index
                required property string modelData

                width: banners.width
                message: modelData
                onDismissed: window.settings.dismiss(index)
            }
        }
    }

    StackView {
        id: stack

        anchors.fill: parent
        anchors.leftMargin: side.width
        anchors.bottomMargin: banners.height
        focus: true
        clip: true

        pushEnter: Transition { NumberAnimation { property: "x"; from: stack.width; to: 0; duration: Theme.slide; easing.type: Easing.OutCubic } }
        pushExit: Transition { NumberAnimation { property: "x"; from: 0; to: -stack.width * 0.3; duration: Theme.slide; easing.type: Easing.OutCubic } }
        popEnter: Transition { NumberAnimation { property: "x"; from: -stack.width * 0.3; to: 0; duration: Theme.slide; easing.type: Easing.OutCubic } }
        popExit: Transition { NumberAnimation { property: "x"; from: 0; to: stack.width; duration: Theme.slide; easing.type: Easing.OutCubic } }
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton
        enabled: stack.depth > window.firstDepth
        onClicked: window.back()
    }
}
