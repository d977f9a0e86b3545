import QtQuick
import Qt.labs.qmlmodels
import Quorvantis.Settings

// A page of rows. All are made, so that assistive technology finds those that are off screen. What
// draws a kind of row is loaded with the first page that has one.
KeyList {
    id: list

    property bool ready: false
    readonly property var files: ({
        group: "GroupRow.qml", link: "LinkRow.qml", color: "ColorRow.qml", button: "ButtonRow.qml", switch: "SwitchRow.qml",
        slider: "SliderRow.qml", segment: "SegmentRow.qml", text: "TextRow.qml", secret: "SecretRow.qml", longtext: "TextRow.qml",
        value: "ValueRow.qml", static: "StaticRow.qml", giant: "StaticRow.qml", spinner: "SpinnerRow.qml"
    })
    property var loaded: []

    function stop(from: int, direction: int): int {
        return page.rows.nextStop(from, direction);
    }
    function takeFocus() {
        // A model that is set late gives the focus to its first row, whether that takes keys or not.
        if (focusedIndex < 0 || stop(focusedIndex - 1, 1) !== focusedIndex)
            enter(1);
    }
    function loadKinds() {
        for (const kind of page.rows?.kinds ?? []) {
            if (loaded.includes(kind))
                continue;
            loaded.push(kind);
            const drawn = Qt.createComponent(files[kind], Component.PreferSynchronous, chooser);
            chooser.choices.push(choice.createObject(chooser, { roleValue: kind, delegate: drawn }));
        }
    }

    // Rows of new kinds are made once what draws them is loaded.
    model: ready ? page.rows : null
    cacheBuffer: 100000
    Component.onCompleted: {
        loadKinds();
        ready = true;
    }

    Connections {
        target: list.page

        function onMarkedChanged() {
            if (list.page.marked < 0)
                return;
            list.go(list.page.marked, false);
            list.show(list.page.marked, ListView.Center);
        }
    }
    Connections {
        target: list.page.rows

        function onKindsChanged() {
            list.ready = false;
            list.loadKinds();
        }
        function onModelReset() {
            list.ready = true;
        }
    }
    Component {
        id: choice

        DelegateChoice {}
    }

    delegate: DelegateChooser {
        id: chooser
        role: "kind"
    }
}
