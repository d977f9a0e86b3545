import QtQuick

// A label at the left and a value at the right that share the width: the label keeps what it needs
// up to two thirds, both end in an ellipsis where the width is too small.
Item {
    id: pair

    property string label
    property string value
    property color labelColor: Theme.text
    property bool wraps: true  // a label that stands alone

    readonly property real free: width - (value === "" ? 0 : 8)
    readonly property real labelWidth: value === "" ? width : Math.min(Math.ceil(labelSize.advanceWidth) + 1, Math.max(free - valueSize.advanceWidth - 1, free * 0.62))

    implicitHeight: Math.max(name.height, shown.height)

    TextMetrics {
        id: labelSize
        text: pair.label
        font: name.font
    }
    TextMetrics {
        id: valueSize
        text: pair.value
        font: shown.font
    }
    Text {
        id: name

        width: Math.max(0, pair.labelWidth)
        anchors.verticalCenter: parent.verticalCenter
        text: pair.label
        color: pair.labelColor
        font.pixelSize: Theme.body
        wrapMode: pair.wraps ? Text.Wrap : Text.NoWrap
        maximumLineCount: pair.wraps ? 3 : 1
        elide: Text.ElideRight
    }
    Text {
        id: shown

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(0, pair.free - pair.labelWidth)
        horizontalAlignment: Text.AlignRight
        text: pair.value
        textFormat: Text.PlainText
        color: Theme.secondary
        font.pixelSize: Theme.body
        elide: Text.ElideRight
        maximumLineCount: 1
    }
}
