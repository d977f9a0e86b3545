pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The color that the user mixes: a row to choose, with a slider for each part of the color.
SwatchRow {
    id: row

    readonly property bool roomy: width - 2 * side >= Theme.unit(270) + 30
    readonly property real slidersLeft: Math.max(Theme.unit(48) + 30 + textWidth, width - 2 * side - Theme.unit(300))

    function parts(): var {
        return Array.from({ length: repeater.count }, (_, i) => repeater.itemAt(i));
    }

    textWidth: roomy ? Theme.unit(72) : width - 2 * side - Theme.unit(88) - 30
    below: roomy ? 0 : 3 * Theme.unit(34) + 8
    footer: hint.height + 8

    Column {
        id: sliders

        x: row.roomy ? row.slidersLeft : Theme.inset
        y: row.roomy ? 5 : parent.height - height - 6
        width: row.width - 2 * row.side - x - (row.roomy ? Theme.unit(26) : 0) - Theme.inset

        Repeater {
            id: repeater

            model: row.entry.sliders.length

            PartSliderView {
                required property int index

                width: sliders.width
                height: row.roomy ? (row.entry.height - 10) / 3 : Theme.unit(34)
                shown: row.entry.sliders[index]
                page: row.page
                Accessible.name: [qsTr("Red"), qsTr("Green"), qsTr("Blue")][index] ?? ""
                Accessible.description: row.entry.detail
            }
        }
    }
    Text {
        id: hint

        x: Theme.inset
        y: parent.height + 8
        width: parent.width - 2 * x
        text: row.entry.ticked ? qsTr("The color is set when you let go of a slider.") : qsTr("Tap the row to set the color that you have mixed.")
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondary
        font.pixelSize: Theme.small
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
