import QtQuick
import Quorvantis.Settings

// What stands in an alert or a sheet: one thing below the other. The arrows walk through it.
FocusScope {
    id: frame

    required property AlertBase of
    property PickerWheel wheel: null  // what turns it does so from the buttons too
    default property alias shown: column.content
    property alias spacing: column.spacing

    function step(key: int): bool {
        const by = { [Qt.Key_Left]: -1, [Qt.Key_Up]: -1, [Qt.Key_Right]: 1, [Qt.Key_Down]: 1 }[key];
        if (by !== undefined)
            (Window.activeFocusItem ?? frame).nextItemInFocusChain(by > 0).forceActiveFocus(Qt.TabFocusReason);
        return by !== undefined;
    }

    implicitHeight: column.contentHeight
    focus: true
    Keys.onPressed: event => event.accepted = wheel ? wheel.turn(event) : step(event.key)
    Keys.onEscapePressed: of.alert.cancel()
    Keys.onBackPressed: of.alert.cancel()
    Accessible.role: Accessible.Dialog
    Accessible.name: of.alert.title
    Accessible.description: of.description

    ScrollColumn {
        id: column

        anchors.fill: parent
        keyed: false
    }
}
