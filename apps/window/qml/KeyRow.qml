import QtQuick

// A row of a KeyList.
FocusScope {
    required property int index

    signal tabbed(int direction)  // Tab, where the item that has the keyboard takes the key itself

    // What takes the keyboard, in the order of Tab.
    function stops(): var {
        return [];
    }
    function take(last: bool) {
        const all = stops();
        all[last ? all.length - 1 : 0]?.forceActiveFocus(last ? Qt.BacktabFocusReason : Qt.TabFocusReason);
    }
    // From what has the keyboard to what is next in this row; false: there is nothing.
    function onward(direction: int): bool {
        const all = stops();
        const next = all[all.findIndex(item => item.activeFocus) + direction];
        next?.forceActiveFocus(direction > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        return next !== undefined;
    }

    width: ListView.view ? ListView.view.width : 0
    onActiveFocusChanged: {
        if (activeFocus && ListView.view)
            ListView.view.currentIndex = index;
    }
}
