pragma ComponentBehavior: Bound

import QtQuick
import Quorvantis.Settings

// All triggers in a row, levels before events; those that have a profile are filled.
Item {
    id: strip

    required property ProfilesTool profiles
    readonly property var paths: profiles.triggerPaths
    readonly property int levels: profiles.levels
    readonly property real gap: 8
    readonly property real step: (width - gap) / profiles.triggers.length
    property int pointed: -1  // the trigger under the pointer

    signal chosen(path: string)

    function at(x: real): int {
        const count = profiles.triggers.length;
        const index = Math.floor((x < levels * step ? x : x - gap) / step);
        return Math.max(0, Math.min(count - 1, index));
    }
    // The nearest one with a profile, within a finger's reach.
    function filledNear(index: int): int {
        for (let off = 0; off < 5; ++off)
            for (const i of [index - off, index + off])
                if (i >= 0 && i < profiles.triggers.length && paths[i] !== "")
                    return i;
        return -1;
    }

    implicitHeight: bars.height + ends.height + 6
    Accessible.role: Accessible.Graphic
    Accessible.name: qsTr("%1 of %2 triggers have a profile").arg(profiles.saved.length).arg(profiles.triggers.length)

    Item {
        id: bars

        width: parent.width
        height: 34

        Repeater {
            model: strip.profiles.triggers.length

            Rectangle {
                required property int index
                readonly property bool filled: strip.paths[index] !== ""

                objectName: filled ? "filled" : "free"
                x: index * strip.step + (index >= strip.levels ? strip.gap : 0)
                y: filled ? 0 : 10
                width: Math.max(1, strip.step - 1)
                height: filled ? parent.height : parent.height - 20
                radius: Math.min(2, width / 2)
                color: filled ? Theme.taken : Theme.free
                border.width: strip.pointed === index ? 1 : 0
                border.color: Theme.text
            }
        }
    }
    Item {
        id: ends

        anchors.top: bars.bottom
        anchors.topMargin: 6
        width: parent.width
        height: low.height

        Text {
            id: low

            text: strip.profiles.triggers[Math.max(0, strip.pointed)]
            textFormat: Text.PlainText
            color: Theme.secondary
            font.pixelSize: Theme.small
            Accessible.ignored: true
        }
        Text {
            readonly property int middle: strip.levels / 2 - 1

            x: strip.step * (middle + 0.5) - width / 2
            visible: strip.pointed < 0
            text: strip.profiles.triggers[middle]
            textFormat: Text.PlainText
            color: Theme.secondary
            font.pixelSize: Theme.small
            Accessible.ignored: true
        }
        Text {
            anchors.right: parent.right
            visible: strip.pointed < 0
            text: qsTr("Events")
            textFormat: Text.PlainText
            color: Theme.secondary
            font.pixelSize: Theme.small
            Accessible.ignored: true
        }
    }
    MouseArea {
        anchors.fill: bars
        hoverEnabled: true
        onPositionChanged: mouse => strip.pointed = strip.at(mouse.x)
        onExited: strip.pointed = -1
        onClicked: mouse => {
            const filled = strip.filledNear(strip.at(mouse.x));
            if (filled >= 0)
                strip.chosen(strip.paths[filled]);
        }
    }
}
