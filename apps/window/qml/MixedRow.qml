pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// The colour that the user mixes: a row to choose, with a slider for each part of the colour.
SwatchRow {
    id: row

    readonly property real slidersLeft: Math.max(150, width - 2 * side - 300)

    textWidth: 72

    Column {
        id: sliders

        x: row.slidersLeft
        width: row.width - 2 * row.side - x - 44
        topPadding: 5

        Repeater {
            model: row.entry.sliders.length

            PartSliderView {
                required property int index

                width: sliders.width
                height: (row.entry.height - 10) / 3
                shown: row.entry.sliders[index]
                page: row.page
            }
        }
    }
}
