pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The problems to report, each until it is dismissed.
Column {
    id: notices

    required property SettingsBridge settings

    Repeater {
        model: notices.settings.problems

        Banner {
            required property int index
            required property string modelData

            width: notices.width
            message: modelData
            onDismissed: notices.settings.dismiss(index)
        }
    }
}
