import QtQuick
import Qt.labs.qmlmodels
import Quorvantis.Settings

// A page of colors: what is chosen above, and the table below.
FocusScope {
    id: view

    required property PageModel page
    readonly property bool raised: list.raised && !strip.visible

    function takeFocus() {
        if (list.focusedIndex < 0)
            list.go(list.currentIndex >= 0 ? list.currentIndex : Math.max(0, page.swatches.tickedIndex), false);
    }

    focus: true

    PreviewStrip {
        id: strip

        width: parent.width
        z: 1
        visible: view.page.preview.label !== ""
        shown: view.page.preview
        raised: list.raised
    }

    KeyList {
        id: list

        page: view.page
        anchors.fill: parent
        anchors.topMargin: strip.visible ? strip.height : 0
        model: view.page.swatches
        cacheBuffer: 100000  // all are made, so that assistive technology finds those off screen

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice { roleValue: "preset"; SwatchRow {} }
            DelegateChoice { roleValue: "mixed"; MixedRow {} }
        }
    }
}
