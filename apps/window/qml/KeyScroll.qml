import QtQuick

// The keyboard in a view that scrolls: what has it stays in sight until the user scrolls it away, the
// arrows lead to the next item that takes it, and scroll where there is none.
Item {
    id: keys

    required property Flickable of
    readonly property Item focused: Window.activeFocusItem
    property bool following: true

    function holds(item: Item): bool {
        for (let at = item; at; at = at.parent)
            if (at === of.contentItem)
                return true;
        return false;
    }
    function scrollTo(y: real) {
        const end = of.originY + of.contentHeight + of.bottomMargin - of.height;
        of.contentY = Math.max(of.originY - of.topMargin, Math.min(end, y));
    }
    function inSight(): bool {
        if (!holds(focused))
            return false;
        const top = focused.mapToItem(of, 0, 0).y;
        return top < of.height && top + focused.height > 0;
    }
    function reveal() {
        if (!holds(focused) || focused === of.contentItem)
            return;
        const top = focused.mapToItem(of.contentItem, 0, 0).y, bottom = top + focused.height;
        if (top < of.contentY)
            scrollTo(top - 8);
        else if (bottom > of.contentY + of.height)
            scrollTo(bottom + 8 - of.height);
    }
    function step(direction: int) {
        const next = (focused ?? of).nextItemInFocusChain(direction > 0);
        if (next !== focused && holds(next))
            next.forceActiveFocus(direction > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        else
            scrollTo(of.contentY + direction * Theme.rowHeight);
    }

    onFocusedChanged: {
        following = true;
        reveal();
    }

    Connections {
        target: keys.of

        function onContentYChanged() {
            keys.following = keys.inSight();
        }
        function onHeightChanged() {
            if (keys.following)
                keys.reveal();
        }
        function onContentHeightChanged() {
            if (keys.following)
                keys.reveal();
        }
    }
    Keys.onPressed: event => {
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_Down: step(1); break;
        case Qt.Key_Up: step(-1); break;
        case Qt.Key_PageDown: scrollTo(of.contentY + of.height - Theme.rowHeight); break;
        case Qt.Key_PageUp: scrollTo(of.contentY - of.height + Theme.rowHeight); break;
        case Qt.Key_Home: scrollTo(of.originY - of.topMargin); break;
        case Qt.Key_End: scrollTo(of.originY + of.contentHeight); break;
        default: event.accepted = false;
        }
    }
}
