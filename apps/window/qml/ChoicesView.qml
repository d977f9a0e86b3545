import QtQuick
import Qt.labs.qmlmodels
import Quorvantis.Settings

// The entries of a list: choices, of which the current one is ticked, or what is only listed.
FocusScope {
    id: view

    required property PageModel page
    readonly property ChoiceModel choices: page.choices
    readonly property real side: Theme.sideOf(width)
    readonly property bool scrolled: list.raised
    readonly property bool raised: scrolled && !filter.visible
    readonly property bool reading: page.reading !== ""

    function takeFocus() {
        list.go(list.currentIndex >= 0 ? list.currentIndex : Math.max(0, choices.tickedPosition), false);
    }

    focus: true
    onReadingChanged: {
        if (reading || list.currentIndex >= 0 || filter.text !== "")
            return;
        list.begin();
        if (KeyboardUse.active && list.activeFocus)
            takeFocus();
    }

    Rectangle {
        width: parent.width
        height: Theme.line
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
            list.model = null;  // ends what is being made of other entries
            view.choices.filter = text;
            list.model = view.choices;
            list.currentIndex = -1;  // a model makes it the first
        }
        Keys.onDownPressed: view.takeFocus()
        Keys.onReturnPressed: view.takeFocus()
        Keys.onEnterPressed: view.takeFocus()
    }

    NoticeView {
        anchors.fill: list
        visible: view.choices.count === 0
        busy: view.reading && view.choices.total === 0
        title: busy ? view.page.reading : view.choices.total > 0 ? qsTr("No matches") : note.visible ? "" : qsTr("No entries")
        detail: busy || note.visible ? "" : view.choices.total === 0 ? view.page.filledBy : qsTr("Nothing holds \u201c%1\u201d.").arg(filter.text)
    }

    Text {
        id: note

        anchors.bottom: parent.bottom
        x: view.side + Theme.inset
        width: view.width - 2 * x
        topPadding: 10
        bottomPadding: 14
        visible: text !== ""
        text: view.page.notice
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondary
        font.pixelSize: Theme.small
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    KeyList {
        id: list

        function report() {}

        page: view.page
        anchors.fill: parent
        anchors.topMargin: filter.visible ? filter.height + 24 : 0
        anchors.bottomMargin: note.visible ? note.height : 0
        model: view.choices
        topMargin: filter.visible ? 0 : 20
        // All are made, so that assistive technology finds those that are off screen, except of a
        // list of 300 or more.
        cacheBuffer: view.choices.count < 300 ? 100000 : 2000

        function begin() {
            currentIndex = view.choices.tickedPosition;
            if (currentIndex >= 0)
                positionViewAtIndex(currentIndex, ListView.Center);
        }

        Component.onCompleted: begin()

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: "choice"
                ChoiceRow {}
            }
            DelegateChoice {
                roleValue: "profile"
                ProfileRow {}
            }
            DelegateChoice {
                roleValue: "text"
                PlainRow {}
            }
        }
    }
}
