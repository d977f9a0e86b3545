import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A list over the pages. All its entries are made, so that the keyboard and assistive technology
// find those that are off screen. The keyboard is on an entry while the user works with it: on the
// first one, or on what has come in the place of one that has gone.
ListView {
    id: list

    property string heading
    property real place: 0  // of the entry that has the keyboard

    // What takes the keyboard in an item, below its heading.
    function stopIn(item: Item): Item {
        if (!item.visible || !item.enabled || item.activeFocusOnTab)
            return item.visible && item.enabled ? item : null;
        for (let i = item.children.length - 1; i >= 0; --i) {
            const found = stopIn(item.children[i]);
            if (found)
                return found;
        }
        return null;
    }
    function enter() {
        if (keys.focused !== list || !KeyboardUse.active || count === 0)
            return;
        forceLayout();
        const row = itemAt(1, Math.min(place, originY + contentHeight - 1)) ?? itemAtIndex(0);
        stopIn(row)?.forceActiveFocus(Qt.TabFocusReason);
    }

    clip: true
    focus: true
    cacheBuffer: 100000
    currentIndex: -1
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    bottomMargin: 16
    T.ScrollBar.vertical: SlimScrollBar {}
    onCountChanged: later.start()
    Keys.forwardTo: [keys]
    Accessible.role: Accessible.List
    Accessible.name: heading

    Timer {
        id: later

        interval: 0
        onTriggered: list.enter()
    }
    KeyScroll {
        id: keys

        of: list
        onFocusedChanged: {
            if (focused === list)
                later.start();
            else if (holds(focused))
                list.place = focused.mapToItem(list.contentItem, 0, focused.height / 2).y;
        }
    }
}
