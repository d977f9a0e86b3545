import QtQuick
import QtQuick.Controls.Basic
import Qt.labs.qmlmodels
import Quorvantis.Settings

// A page of rows.
ListView {
    id: list

    required property PageModel page
    readonly property bool raised: !atYBeginning

    // Which entries are on screen.
    function report() {
        if (count === 0)
            return;
        const first = Math.max(0, indexAt(1, Math.max(0, contentY)));
        const last = indexAt(1, contentY + height - 1);
        page.show(first, (last < 0 ? count - 1 : last) - first + 1);
    }
    // Gives the row at this index the keyboard focus.
    function enter(index: int, reason: int): bool {
        if (index < 0)
            return false;
        positionViewAtIndex(index, ListView.Contain);
        const row = itemAtIndex(index) as CardRow;
        if (row)
            row.take(reason);
        // Only now: the list would give its current row the keyboard for no reason, without a ring.
        currentIndex = index;
        return true;
    }
    function focusedIndex(): int {
        for (let i = 0; i < count; ++i) {
            const item = itemAtIndex(i);
            if (item && item.activeFocus)
                return i;
        }
        return -1;
    }
    function move(direction: int, reason: int): bool {
        return enter(page.rows.nextUsable(focusedIndex(), direction), reason);
    }
    function takeFocus() {
        if (focusedIndex() < 0)
            enter(page.rows.nextUsable(-1, 1), Qt.TabFocusReason);
    }

    focus: true
    model: page.rows
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 1200
    clip: true
    keyNavigationEnabled: false
    currentIndex: -1
    highlightFollowsCurrentItem: false
    bottomMargin: 36
    ScrollBar.vertical: ScrollBar {}

    onContentYChanged: later.start()
    onContentHeightChanged: later.start()
    onHeightChanged: later.start()
    onCountChanged: later.start()
    StackView.onActivated: report()

    Keys.onDownPressed: event => event.accepted = move(1, Qt.TabFocusReason)
    Keys.onUpPressed: event => event.accepted = focusedIndex() > 0 && move(-1, Qt.BacktabFocusReason)
    Keys.onTabPressed: event => event.accepted = move(1, Qt.TabFocusReason)
    Keys.onBacktabPressed: event => event.accepted = focusedIndex() > 0 && move(-1, Qt.BacktabFocusReason)

    Connections {
        target: list.page

        function onScrollWanted(first) {
            list.positionViewAtIndex(first, ListView.Beginning);
        }
        function onRowWanted(row) {
            list.forceLayout();
            list.enter(row, Qt.TabFocusReason);
            list.positionViewAtIndex(row, ListView.Center);
        }
    }
    Timer {
        id: later
        interval: 0
        onTriggered: list.report()
    }

    delegate: DelegateChooser {
        role: "kind"

        DelegateChoice { roleValue: "group"; GroupRow {} }
        DelegateChoice { roleValue: "link"; LinkRow {} }
        DelegateChoice { roleValue: "color"; ColorRow {} }
        DelegateChoice { roleValue: "button"; ButtonRow {} }
        DelegateChoice { roleValue: "switch"; SwitchRow {} }
        DelegateChoice { roleValue: "slider"; SliderRow {} }
        DelegateChoice { roleValue: "segment"; SegmentRow {} }
        DelegateChoice { roleValue: "text"; TextRow {} }
        DelegateChoice { roleValue: "longtext"; LongTextRow {} }
        DelegateChoice { roleValue: "value"; ValueRow {} }
        DelegateChoice { roleValue: "static"; StaticRow {} }
        DelegateChoice { roleValue: "giant"; StaticRow {} }
        DelegateChoice { roleValue: "spinner"; SpinnerRow {} }
    }
}
