import QtQuick
import QtQuick.Controls.Basic
import Qt.labs.qmlmodels
import Quorvantis.Settings

// A page of colors: what is chosen above, and the table below.
FocusScope {
    id: view

    required property PageModel page
    readonly property bool raised: !list.atYBeginning && !strip.visible

    function takeFocus() {
        list.enter(list.currentIndex >= 0 ? list.currentIndex : Math.max(0, page.swatches.tickedIndex), Qt.TabFocusReason);
    }

    focus: true

    PreviewStrip {
        id: strip

        width: parent.width
        z: 1
        visible: view.page.preview.label !== ""
        shown: view.page.preview
        raised: !list.atYBeginning
    }

    ListView {
        id: list

        // Which rows are on screen.
        function report() {
            if (count === 0 || height <= 0)
                return;
            const first = Math.max(0, indexAt(1, Math.max(0, contentY)));
            const last = indexAt(1, contentY + height - 1);
            view.page.show(first, (last < 0 ? count - 1 : last) - first + 1);
        }
        // Heights of rows that were never seen are a guess the first time.
        function show(index: int, mode: int) {
            positionViewAtIndex(index, mode);
            forceLayout();
            positionViewAtIndex(index, mode);
            report();
        }
        function enter(index: int, reason: int): bool {
            if (index < 0 || index >= count)
                return false;
            show(index, ListView.Contain);
            if (index === count - 1)
                positionViewAtEnd();
            itemAtIndex(index)?.take(reason);
            currentIndex = index;
            return true;
        }
        function go(index: int): bool {
            return enter(Math.max(0, Math.min(count - 1, index)), Qt.TabFocusReason);
        }

        anchors.fill: parent
        anchors.topMargin: strip.visible ? strip.height : 0
        focus: true
        model: view.page.swatches
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 200
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
        Accessible.role: Accessible.List
        Accessible.name: view.page.title

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice { roleValue: "preset"; SwatchRow { onWanted: to => list.go(to) } }
            DelegateChoice { roleValue: "mixed"; MixedRow { onWanted: to => list.go(to) } }
        }
    }

    StackView.onActivated: list.report()
    Timer {
        id: later
        interval: 0
        onTriggered: list.report()
    }
    Connections {
        target: view.page

        function onScrollWanted(first) {
            list.show(first, ListView.Beginning);
        }
    }
}
