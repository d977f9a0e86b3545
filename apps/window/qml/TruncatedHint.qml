import QtQuick
import Quorvantis.Settings

// Says the whole of a text that is cut off where the pointer rests.
Item {
    id: watch

    property string words
    property point at

    HoverHandler {
        parent: watch.parent
        onPointChanged: {
            const text = Desktop.truncatedAt(watch.parent, point.position);
            if (text === watch.words)
                return;
            watch.at = point.position;
            watch.words = text;
        }
        onHoveredChanged: if (!hovered) watch.words = ""
    }
    Item {
        x: watch.at.x
        y: watch.at.y + 20
        width: 1

        Loader {
            active: watch.words !== ""
            sourceComponent: Hint {
                text: watch.words  // qmllint disable unqualified
                wanted: true
            }
        }
    }
}
