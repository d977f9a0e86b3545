import QtQuick
import QtQuick.Templates as T

// What covers the pages until it is closed. It is as tall as its content, or as the window allows;
// an explicit height keeps Qt from moving and cutting it by itself.
T.Popup {
    id: popup

    property real shown: 1  // 0 hidden, 1 there
    property real top: 0    // what stands above it in the window

    parent: T.Overlay.overlay
    modal: true
    focus: true
    padding: 0
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    height: Math.min(implicitHeight, parent ? parent.height - top - 16 : 0)
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round(top + (parent.height - top - height) / 2) : 0

    T.Overlay.modal: Rectangle {
        color: Theme.shade
        Behavior on opacity { NumberAnimation { duration: Theme.slide } }
    }
    background: DialogFace {}
}
