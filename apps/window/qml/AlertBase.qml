import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// What alerts and sheets share: they cover the window until a button is pressed.
// Esc cancels, Return confirms. Their view outlives them while it fades.
PopupBase {
    id: popup

    required property AlertModel alert
    readonly property string description: alert.failures === "" ? alert.message : alert.message + "\n" + alert.failures

    shown: 0
    // A click beside a sheet cancels it.
    closePolicy: alert.sheet && alert.cancels ? T.Popup.CloseOnReleaseOutside : T.Popup.NoAutoClose
    onOpened: contentItem.forceActiveFocus(Qt.PopupFocusReason)
    onAboutToHide: if (alert.sheet) alert.cancel()
    onClosed: destroy()
    Component.onDestruction: alert.viewGone()

    enter: Transition { NumberAnimation { property: "shown"; from: 0; to: 1; duration: Theme.slide; easing.type: Easing.OutCubic } }
    exit: Transition { NumberAnimation { property: "shown"; to: 0; duration: Theme.slide * 0.7; easing.type: Easing.InCubic } }

    Connections {
        target: popup.alert

        function onLeft() {
            popup.close();
        }
    }
}
