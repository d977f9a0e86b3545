import QtQuick
import Qt.labs.qmlmodels
import Quorvantis.Settings

// A page of rows. All are made, so that assistive technology finds those that are off screen. What
// draws a kind of row is loaded with the first page that has one.
KeyList {
    id: list

    property bool ready: loadKinds()  // before the list is filled: else it would have a current row

    function stop(from: int, direction: int): int {
        return page.rows.nextStop(from, direction);
    }
    function takeFocus() {
        if (focusedIndex < 0)
            enter(1);
    }
    function fileOf(kind: string): string {
        return {
            group: "GroupRow.qml", link: "LinkRow.qml", color: "ColorRow.qml", button: "ButtonRow.qml", switch: "SwitchRow.qml",
            slider: "SliderRow.qml", segment: "SegmentRow.qml", text: "TextRow.qml", secret: "SecretRow.qml",
            longtext: "TextRow.qml", value: "ValueRow.qml", static: "StaticRow.qml", giant: "StaticRow.qml",
            spinner: "SpinnerRow.qml"
        }[kind];
    }
    function loadKinds(): bool {
        for (const kind of page.rows?.kinds ?? []) {
            if (Array.from(chooser.choices).some(known => known.roleValue === kind))
                continue;
            const drawn = Qt.createComponent(fileOf(kind), Component.PreferSynchronous, chooser);
            chooser.choices.push(choice.createObject(chooser, { roleValue: kind, delegate: drawn }));
        }
        return true;
    }

    model: ready ? page.rows : null
    cacheBuffer: 100000

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
            if (list.ready)
                return;
            list.ready = true;
            list.currentIndex = -1;
            list.contentItem.focus = true;
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
