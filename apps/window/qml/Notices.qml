pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The problems to report, each until it is dismissed.
Column {
    id: notices

    required property SettingsBridge settings

    Repeater {
        model: notices.settings.problems

        MessageBar {
            required property int index
            required property string modelData

            width: notices.width
            color: Theme.warning
            ink: Theme.warningText
            message: modelData
            action: qsTr("Dismiss")
            focusPolicy: Qt.TabFocus
            onActed: notices.settings.dismiss(index)
        }
    }
}
