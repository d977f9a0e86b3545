import QtQuick
import Quorvantis.Settings

// What the bar of every page offers besides the page's own button.
Row {
    id: extras

    required property PageModel page
    property bool first: false  // the first page

    component Dot: Rectangle {
        width: Theme.unit(4.4)
        height: width
        radius: width / 2
        color: Theme.accentText
    }

    visible: page.tools !== null
    width: visible ? implicitWidth : 0

    BarButton {
        visible: extras.first
        text: qsTr("Search")
        onClicked: extras.page.tools.searchWanted("")

        Rectangle {
            id: lens

            anchors.centerIn: parent
            anchors.horizontalCenterOffset: -2
            anchors.verticalCenterOffset: -2
            width: Theme.unit(14)
            height: width
            radius: width / 2
            color: "transparent"
            border.width: 2 * Theme.scale
            border.color: Theme.accentText
        }
        Rectangle {
            x: lens.x + lens.width * 0.82
            y: lens.y + lens.height * 0.82
            width: lens.width * 0.55
            height: 2.4 * Theme.scale
            radius: height / 2
            rotation: 45
            transformOrigin: Item.Left
            antialiasing: true
            color: Theme.accentText
        }
    }
    BarButton {
        id: more

        text: qsTr("More")
        onClicked: extras.page.tools.pageMenuWanted(extras.page, more)

        Row {
            anchors.centerIn: parent
            spacing: Theme.unit(4)

            Dot {}
            Dot {}
            Dot {}
        }
    }
}
