import QtQuick
import Quorvantis.Settings

// The choices of a row, the current one ticked.
FocusScope {
    id: view

    required property PageModel page
    readonly property ChoiceModel choices: page.choices
    readonly property real side: Theme.sideOf(width)
    readonly property bool scrolled: list.raised
    readonly property bool raised: scrolled && !filter.visible

    function takeFocus() {
        list.go(list.currentIndex >= 0 ? list.currentIndex : Math.max(0, choices.tickedPosition), false);
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
    InputField {
        id: filter

        x: view.side
        y: 12
        width: view.width - 2 * x
        visible: view.choices.filterable
        placeholderText: qsTr("Filter")
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

    KeyList {
        id: list

        function report() {}

        page: view.page
        anchors.fill: parent
        anchors.topMargin: filter.visible ? filter.height + 24 : 0
        model: view.choices
        topMargin: filter.visible ? 0 : 20

        Component.onCompleted: {
            currentIndex = view.choices.tickedPosition;
            if (currentIndex >= 0)
                positionViewAtIndex(currentIndex, ListView.Center);
        }

        delegate: ChoiceRow {}
    }
}
