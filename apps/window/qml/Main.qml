pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Quorvantis.Settings

// The window: the shown page, those it slides over, and the problems to report.
ApplicationWindow {
    id: window

    required property SettingsBridge settings

    // What is being edited is stored before its page is left.
    function commit() {
        nowhere.forceActiveFocus();
    }
    function back() {
        commit();
        settings.back();
    }
    function push(page: PageModel) {
        const view = stack.push("PageView.qml", {
            page: page,
            canGoBack: stack.depth > 0,
            byKeyboard: KeyboardUse.active
        }, stack.depth > 0 ? StackView.PushTransition : StackView.Immediate);
        view.back.connect(back);
        view.forceActiveFocus();
    }

    width: 390
    height: Math.min(844, Screen.desktopAvailableHeight - 60)
    minimumWidth: 320
    minimumHeight: 600
    visible: true
    title: settings.shown ? settings.shown.title : ""
    color: Theme.background

    Component.onCompleted: settings.announce()
    onClosing: commit()

    Connections {
        target: window.settings

        function onPushed(page) {
            window.push(page);
        }
        function onAlertShown(alert) {
            window.commit();
            const popup = (alert.sheet ? sheet : plainAlert).createObject(window, { alert: alert });
            popup.closed.connect(() => {
                if (window && !window.settings.alert)
                    stack.currentItem.forceActiveFocus();
            });
            popup.open();
        }
        function onPopped(shown) {
            const view = stack.find(item => item.page === shown);
            stack.pop(view);
            stack.currentItem.forceActiveFocus();
        }
    }

    Shortcut {
        sequences: (window.settings.undo.text === "" ? ["Esc"] : []).concat(["Backspace", "Alt+Left", "Back"])
        enabled: stack.depth > 1 && !window.settings.alert
        onActivated: window.back()
    }

    Shortcut {
        sequences: ["Ctrl+Z"]
        enabled: !window.settings.alert
        onActivated: window.settings.undo.undo()
    }
    Shortcut {
        sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]
        enabled: !window.settings.alert
        onActivated: window.settings.undo.redo()
    }
    Component {
        id: sheet

        SheetPopup {
            page: stack.currentItem as PageView
            top: above.height
        }
    }
    Component {
        id: plainAlert

        AlertPopup {
            top: above.height
        }
    }
    // Above what covers the window.
    T.Popup {
        id: above

        parent: T.Overlay.overlay
        z: 1
        width: window.width
        height: visible ? contentHeight : 0
        padding: 0
        visible: window.settings.alert !== null && window.settings.problems.length > 0
        closePolicy: T.Popup.NoAutoClose

        contentItem: Notices {
            settings: window.settings
        }
    }

    Item {
        id: nowhere
    }
    RecoveryNotice {
        id: recovery

        width: parent.width
        recovery: window.settings.recovery
    }
    Notices {
        id: banners

        anchors.bottom: parent.bottom
        width: parent.width
        visible: !above.visible
        height: visible ? implicitHeight : 0
        settings: window.settings
    }

    UndoBar {
        id: undoBar

        anchors.bottom: banners.top
        width: parent.width
        undo: window.settings.undo
        covered: window.settings.alert !== null
    }

    StackView {
        id: stack

        anchors.fill: parent
        anchors.topMargin: recovery.height
        anchors.bottomMargin: banners.height + undoBar.height
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
        enabled: stack.depth > 1
        onClicked: window.back()
    }
}
