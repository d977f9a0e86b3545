import QtQuick
import QtQuick.Controls.Basic
import Quorvantis.Settings

// The choices of a row, the current one ticked.
FocusScope {
    id: view

    required property PageModel page
    readonly property ChoiceModel choices: page.choices
    readonly property real side: Theme.sideOf(width)
    readonly property bool scrolled: !list.atYBeginning
    readonly property bool raised: scrolled && !filter.visible

    function takeFocus() {
        if (list.currentIndex < 0)
            list.currentIndex = Math.max(0, choices.tickedPosition);
        list.forceActiveFocus(Qt.TabFocusReason);
        list.byKeyboard = true;
    }

    focus: true

    Rectangle {
        width: parent.width
        height: 1
        y: list.y
        z: 1
        visible: view.scrolled && filter.visible
        color: Theme.separator
    }
    FilterField {
        id: filter

        x: view.side
        y: 12
        width: view.width - 2 * x
        visible: view.choices.filterable
        onTextChanged: {
            list.currentIndex = -1;
            view.choices.filter = text;
        }
        Keys.onDownPressed: view.takeFocus()
        Keys.onReturnPressed: view.takeFocus()
    }

    NoticeView {
        anchors.fill: list
        visible: view.choices.count === 0
        title: view.choices.total === 0 ? qsTr("No entries") : qsTr("No matches")
        detail: view.choices.total === 0 ? view.page.filledBy : qsTr("Nothing holds \u201c%1\u201d.").arg(filter.text)
    }

    Component {
        id: ring
        ChoiceRing {}
    }
    ListView {
        id: list

        property bool byKeyboard: false

        function pick() {
            const row = currentItem as ChoiceRow;
            if (row)
                row.pick();
        }
        function go(position: int) {
            byKeyboard = true;
            currentIndex = Math.max(0, Math.min(count - 1, position));
            positionViewAtIndex(currentIndex, ListView.Contain);
        }

        anchors.fill: parent
        anchors.topMargin: filter.visible ? filter.height + 24 : 0
        focus: true
        activeFocusOnTab: true
        clip: true
        model: view.choices
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        currentIndex: -1
        topMargin: filter.visible ? 0 : 20
        bottomMargin: 36
        ScrollBar.vertical: ScrollBar {}

        Component.onCompleted: {
            currentIndex = view.choices.tickedPosition;
            if (currentIndex >= 0)
                positionViewAtIndex(currentIndex, ListView.Center);
        }
        onActiveFocusChanged: if (!activeFocus) byKeyboard = false

        Keys.onDownPressed: go(currentIndex + 1)
        Keys.onUpPressed: event => {
            event.accepted = currentIndex > 0;
            if (event.accepted)
                go(currentIndex - 1);
        }
        Keys.onPressed: event => {
            const screenful = Math.max(1, Math.floor(height / Theme.rowHeight) - 1);
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_Home: go(0); break;
            case Qt.Key_End: go(count - 1); break;
            case Qt.Key_PageUp: go(currentIndex - screenful); break;
            case Qt.Key_PageDown: go(currentIndex + screenful); break;
            default: event.accepted = false;
            }
        }
        Keys.onReturnPressed: pick()
        Keys.onEnterPressed: pick()
        Keys.onSpacePressed: pick()
        Accessible.role: Accessible.List
        Accessible.name: view.page.title

        delegate: ChoiceRow {}
        highlight: byKeyboard ? ring : null
        highlightMoveDuration: 0
        highlightResizeDuration: 0
    }
}
