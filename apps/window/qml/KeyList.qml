import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// A list of rows for the keyboard: Tab and the arrows lead to the next row that takes it, on screen
// or not, Page Up and Page Down a screenful, Home and End to the ends. Tab leaves the list at its
// ends, and enters it there. The row that has the keyboard is in sight.
ListView {
    id: list

    required property PageModel page
    readonly property int focusedIndex: currentItem && currentItem.activeFocus ? currentIndex : -1
    readonly property bool raised: !atYBeginning
    property bool following: false  // the row with the keyboard, until the user scrolls

    // The nearest row after this one, or before it with a direction of -1, that takes the keyboard;
    // -1 when there is none.
    function stop(from: int, direction: int): int {
        const next = from + direction;
        return next >= 0 && next < count ? next : -1;
    }
    // Which rows are on screen.
    function report() {
        if (count === 0 || height <= 0)
            return;
        const first = Math.max(0, indexAt(1, Math.max(0, contentY)));
        const last = indexAt(1, contentY + height - 1);
        page.show(first, (last < 0 ? count - 1 : last) - first + 1);
    }
    // Heights of rows that were never seen are a guess the first time.
    function show(index: int, mode: int) {
        positionViewAtIndex(index, mode);
        forceLayout();
        positionViewAtIndex(index, mode);
    }
    // At the ends with what stands beside the row.
    function reveal(index: int) {
        following = true;
        if (stop(index, -1) < 0)
            positionViewAtBeginning();
        else if (stop(index, 1) < 0)
            positionViewAtEnd();
        show(index, ListView.Contain);
        report();
    }
    function go(index: int, last: bool): bool {
        if (index < 0)
            return false;
        reveal(index);
        (itemAtIndex(index) as KeyRow)?.take(last);
        return true;
    }
    function enter(direction: int): bool {
        return go(stop(direction > 0 ? -1 : count, direction), direction < 0);
    }
    function leave(direction: int) {
        const gate = direction > 0 ? behind : before;
        gate.nextItemInFocusChain(direction > 0).forceActiveFocus(direction > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }
    function step(direction: int): bool {
        return go(stop(focusedIndex, direction), false);
    }
    function tab(direction: int) {
        if (focusedIndex >= 0 && (currentItem as KeyRow).onward(direction))
            return;
        if (!go(stop(focusedIndex, direction), direction < 0))
            leave(direction);
    }
    function scroll(by: real): bool {
        const end = originY + contentHeight + bottomMargin - height;
        contentY = Math.max(originY - topMargin, Math.min(end, contentY + by));
        forceLayout();
        return true;
    }
    // To the row that is a screenful away, or the nearest one that takes the keyboard.
    function turn(direction: int) {
        const by = direction * Math.max(1, height - Theme.rowHeight);
        const from = focusedIndex;
        const wanted = from < 0 ? contentY + height / 2 + by : currentItem.y + by;
        scroll(by);
        if (stop(-1, 1) < 0)
            return;
        let index = indexAt(1, Math.max(originY, Math.min(originY + contentHeight - 1, wanted)));
        if (index < 0)
            index = direction > 0 ? count - 1 : 0;
        index = stop(index - direction, direction);
        if (index === from && from >= 0)
            index = stop(from, direction);
        if (!go(index, false))
            enter(-direction);
    }
    function press(key: int): bool {
        const nowhere = stop(-1, 1) < 0;
        switch (key) {
        case Qt.Key_Tab: tab(1); break;
        case Qt.Key_Backtab: tab(-1); break;
        case Qt.Key_PageDown: turn(1); break;
        case Qt.Key_PageUp: turn(-1); break;
        case Qt.Key_Down: return nowhere ? scroll(Theme.rowHeight) : step(1);
        case Qt.Key_Up: return nowhere ? scroll(-Theme.rowHeight) : step(-1);
        case Qt.Key_Home: if (!enter(1)) positionViewAtBeginning(); break;
        case Qt.Key_End: if (!go(stop(count, -1), false)) positionViewAtEnd(); break;
        default: return false;
        }
        return true;
    }

    focus: true
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    keyNavigationEnabled: false
    currentIndex: -1
    highlightFollowsCurrentItem: false
    bottomMargin: 36
    T.ScrollBar.vertical: SlimScrollBar {}

    onContentYChanged: later.start()
    onContentHeightChanged: later.start()
    onHeightChanged: later.start()
    onCountChanged: later.start()
    onMovementStarted: following = false
    onFocusedIndexChanged: {
        const row = currentItem;
        if (focusedIndex >= 0 && (KeyboardUse.active || row.y + row.height <= contentY || row.y >= contentY + height))
            reveal(focusedIndex);
    }
    Keys.onPressed: event => {
        const ends = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        const command = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier);
        event.accepted = (!command || ends) && press(event.key);
    }
    Accessible.role: Accessible.List
    Accessible.name: page.title

    Timer {
        id: later

        interval: 0
        onTriggered: {
            if (list.following && KeyboardUse.active && list.focusedIndex >= 0)
                list.show(list.focusedIndex, ListView.Contain);
            list.report();
        }
    }
    Connections {
        target: list.page

        function onScrollWanted(first) {
            list.following = false;
            list.show(first, ListView.Beginning);
            list.report();
        }
        function onRowWanted(row) {
            list.reveal(row);
        }
    }
    Connections {
        target: list.currentItem as KeyRow

        function onTabbed(direction) {
            list.tab(direction);
        }
    }
    // Where Tab enters the list, from above and from below.
    Item {
        id: before
        activeFocusOnTab: list.count > 0
        onActiveFocusChanged: if (activeFocus && !list.enter(1)) list.leave(1)
    }
    Item {
        id: behind
        activeFocusOnTab: list.count > 0
        onActiveFocusChanged: if (activeFocus && !list.enter(-1)) list.leave(-1)
    }
}
