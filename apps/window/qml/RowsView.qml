import QtQuick
import Qt.labs.qmlmodels
import Quorvantis.Settings

// A page of rows. All are made, so that assistive technology finds those that are off screen.
KeyList {
    id: list

    function stop(from: int, direction: int): int {
        return page.rows.nextStop(from, direction);
    }
    function takeFocus() {
        if (focusedIndex < 0)
            enter(1);
    }

    model: page.rows
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
        DelegateChoice { roleValue: "secret"; SecretRow {} }
        DelegateChoice { roleValue: "longtext"; TextRow {} }
        DelegateChoice { roleValue: "value"; ValueRow {} }
        DelegateChoice { roleValue: "static"; StaticRow {} }
        DelegateChoice { roleValue: "giant"; StaticRow {} }
        DelegateChoice { roleValue: "spinner"; SpinnerRow {} }
    }
}
