import QtQuick

// A label at the left and a value at the right. Where the width is too small for both, the value
// stands below the label.
Item {
    id: pair

    property string label
    property string value
    property color valueColor: Theme.secondary
    property size room  // of what stands in place of the value while it is edited

    readonly property bool below: value !== "" && labelSize.advanceWidth + Math.max(valueSize.advanceWidth, room.width) + 18 > width
    readonly property real valueCenter: shown.y + Math.max(shown.height, room.height) / 2

    implicitHeight: below ? name.height + 2 + Math.max(shown.height, room.height) : Math.max(name.height, shown.height)

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

        y: pair.below ? 0 : (pair.height - height) / 2
        width: pair.below || pair.value === "" ? pair.width : Math.ceil(labelSize.advanceWidth) + 1
        text: pair.label
        textFormat: Text.PlainText
        color: Theme.text
        font.pixelSize: Theme.body
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
    }
    Text {
        id: shown

        y: pair.below ? name.height + 2 : (pair.height - height) / 2
        x: pair.below ? 0 : name.width + 8
        width: Math.max(0, pair.width - x)
        horizontalAlignment: pair.below ? Text.AlignLeft : Text.AlignRight
        visible: pair.room.width <= 0
        text: pair.value
        textFormat: Text.PlainText
        color: pair.valueColor
        font.pixelSize: Theme.body
        wrapMode: pair.below ? Text.Wrap : Text.NoWrap
        elide: Text.ElideRight
        maximumLineCount: pair.below ? 3 : 1
    }
}
