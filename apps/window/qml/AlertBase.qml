import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// What alerts and sheets share: they cover the window until a button is pressed.
// Esc cancels, Return confirms. Their view outlives them while it fades.
T.Popup {
    id: popup

    required property AlertModel alert
    property real shown: 0  // 0 hidden, 1 there
    property real top: 0    // what stands above it in the window
    readonly property string description: alert.failures === "" ? alert.message : alert.message + "\n" + alert.failures

    parent: T.Overlay.overlay
    modal: true
    focus: true
    // A click beside a sheet cancels it.
    closePolicy: alert.sheet && alert.cancels ? T.Popup.CloseOnReleaseOutside : T.Popup.NoAutoClose
    onOpened: contentItem.forceActiveFocus(Qt.PopupFocusReason)
    onAboutToHide: if (alert.sheet) alert.cancel()
    padding: 0
    implicitHeight: contentHeight
    onClosed: destroy()
    Component.onDestruction: alert.viewGone()

    T.Overlay.modal: Rectangle {
        color: Theme.shade
        Behavior on opacity { NumberAnimation { duration: Theme.slide } }
    }

    enter: Transition { NumberAnimation { property: "shown"; from: 0; to: 1; duration: Theme.slide; easing.type: Easing.OutCubic } }
    exit: Transition { NumberAnimation { property: "shown"; to: 0; duration: Theme.slide * 0.7; easing.type: Easing.InCubic } }

    Connections {
        target: popup.alert

        function onLeft() {
            popup.close();
        }
    }
}
