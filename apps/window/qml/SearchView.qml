pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The search over all pages: the keyboard stays in the field, and chooses among the results.
ToolView {
    id: view

    property string words  // what was typed already

    function go(result: int) {
        list.currentIndex = Math.max(0, Math.min(list.count - 1, result));
        list.positionViewAtIndex(list.currentIndex, ListView.Contain);
    }

    heading: qsTr("Search")
    Component.onCompleted: field.text = words
    Component.onDestruction: tools.search.end()

    InputField {
        id: field

        objectName: "search"
        x: Theme.sideOf(view.width)
        y: 6
        width: view.width - 2 * x
        focus: true
        placeholderText: qsTr("Search all pages")
        onTextChanged: {
            view.tools.search.words = text;
            view.go(0);
        }
        Keys.onReturnPressed: view.tools.search.open(list.currentIndex)
        Keys.onEnterPressed: view.tools.search.open(list.currentIndex)
        Keys.onDownPressed: view.go(list.currentIndex + 1)
        Keys.onUpPressed: view.go(list.currentIndex - 1)
    }
    NoticeView {
        anchors.fill: list
        visible: list.count === 0
        title: field.text === "" ? qsTr("What are you looking for?") : qsTr("Nothing found")
        detail: field.text === "" ? qsTr("A setting, one of its choices, a color, a page or a saved profile") : qsTr("Try another word, or fewer")
    }
    EntryList {
        id: list

        anchors.fill: parent
        anchors.topMargin: field.y + field.height + 12
        heading: view.heading
        focus: false
        model: view.tools.search.results
        currentIndex: 0

        delegate: EntryRow {
            required property int index
            required property searchResult modelData

            width: list.width
            label: modelData.label
            detail: modelData.where
            first: index === 0
            last: index === list.count - 1
            current: index === list.currentIndex
            onChosen: view.tools.search.open(index)
        }
    }
}
