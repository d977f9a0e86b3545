import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// What a row has besides its control: a mark where it differs from its default, another where the
// user has looked for it, a ring where it has the keyboard, and a menu.
Item {
    id: extras

    required property Item row
    required property row entry
    required property PageModel page
    required property int index
    property Item control: null   // of the row
    property bool holding: false  // the menu opens, and the row's control is not pressed

    function menu() {
        if (!page.tools || entry.label === "" && entry.key === "")
            return;
        holding = true;
        holding = false;
        page.tools.rowMenuWanted(page, index, extras);
    }

    Rectangle {
        x: 5
        y: (parent.height - height) / 2
        width: 6
        height: 6
        radius: 3
        visible: extras.entry.changed
        color: Theme.accentText
    }
    Timer {
        interval: 800
        running: (extras.control as T.AbstractButton)?.pressed ?? false
        onTriggered: extras.menu()
    }
    Loader {
        anchors.fill: parent
        active: extras.page.marked === extras.index
        source: "FoundMark.qml"
    }
    FocusRing {
        of: extras.row
    }
}
