pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
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
            byKeyboard: activeFocusItem?.visualFocus ?? false
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
            stack.pop(view);
            stack.currentItem.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Shortcut {
        sequences: ["Esc", "Backspace", "Alt+Left", "Back"]
        enabled: stack.depth > 1 && !window.settings.alert && tools.open === 0
        onActivated: window.back()
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

    Item {
        id: nowhere
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
        anchors.bottomMargin: banners.height
        focus: true
        clip: true
        Keys.onPressed: event => event.accepted = depth === 1 && tools.type(event.text, event.modifiers)

        pushEnter: Transition { NumberAnimation { property: "x"; from: stack.width; to: 0; duration: Theme.slide; easing.type: Easing.OutCubic } }
        pushExit: Transition { NumberAnimation { property: "x"; from: 0; to: -stack.width * 0.3; duration: Theme.slide; easing.type: Easing.OutCubic } }
        popEnter: Transition { NumberAnimation { property: "x"; from: -stack.width * 0.3; to: 0; duration: Theme.slide; easing.type: Easing.OutCubic } }
        popExit: Transition { NumberAnimation { property: "x"; from: 0; to: stack.width; duration: Theme.slide; easing.type: Easing.OutCubic } }
    }

    ToolViews {
        id: tools

        anchors.fill: parent
        settings: window.settings
        onLeaving: window.commit()
        onDone: stack.currentItem.forceActiveFocus()
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton
        enabled: stack.depth > 1
        onClicked: window.back()
    }
}
