import QtQuick

// An entry of a list that is only read. The keyboard leads to it all the same, so that it can be.
KeyRow {
    id: entry

    required property string title

    function stops(): var {
        return [face];
    }

    height: face.implicitHeight

    ChoiceFace {
        id: face

        x: Theme.sideOf(entry.width)
        width: entry.width - 2 * x
        height: entry.height
        title: entry.title
        first: entry.index === 0
        last: entry.index === entry.ListView.view.count - 1
        Accessible.role: Accessible.StaticText
        Accessible.name: title
        Accessible.focusable: true

        FocusRing {
            of: face
        }
    }
}
