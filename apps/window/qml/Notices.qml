pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The problems to report, each until it is dismissed. Where they are many they scroll, and the
// latest is in sight.
ScrollColumn {
    id: notices

    required property SettingsBridge settings

    property bool follows: true  // shows the latest, until the user scrolls or dismisses one
    property int shown: 0
    readonly property int count: settings.problems.length

    function showLatest() {
        if (follows)
            later.start();
    }

    implicitHeight: Math.min(contentHeight, Math.round(Window.height * 0.4))
    onCountChanged: {
        follows = follows || count > shown;
        shown = count;
    }
    onContentHeightChanged: showLatest()
    onHeightChanged: showLatest()
    onMovementStarted: follows = false

    Timer {
        id: later

        interval: 0
        onTriggered: notices.contentY = Math.max(0, notices.contentHeight - notices.height)
    }
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
            onActed: {
                notices.follows = false;
                notices.settings.dismiss(index);
            }
        }
    }
}
