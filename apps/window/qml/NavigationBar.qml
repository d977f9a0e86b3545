import QtQuick

// The page's title, the way back, and what the page does from here.
Rectangle {
    id: bar

    property string title
    property string backTitle
    property bool canGoBack: false
    property string actionName   // empty: no button at the right
    readonly property Item action: actionPlace.item as Item
    property bool raised: false  // rows pass below
    property real extraWidth: 0  // of what stands left of that button

    signal back
    signal acted

    implicitHeight: Theme.barHeight
    color: raised ? Theme.bar : Theme.background

    readonly property real rightWidth: (actionName !== "" ? actionPlace.width + 8 : extraWidth > 0 ? 6 : Theme.inset) + extraWidth
    readonly property real leftWidth: canGoBack ? backPlace.width + 12 : Theme.inset

    // As wide as the title is, which the one that is seen fits into its place.
    Text {
        id: titleSize

        visible: false
        text: bar.title
        textFormat: Text.PlainText
        font.pixelSize: Theme.body
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }
    Loader {
        id: backPlace

        x: 4
        height: parent.height
        active: bar.canGoBack
        sourceComponent: BackButton {
            title: bar.backTitle  // qmllint disable unqualified
            widest: bar.width * 0.36  // qmllint disable unqualified
            // Where both titles don't fit the page's own is the one to keep, on two lines if need be.
            room: bar.width - titleSize.implicitWidth - 60 - bar.rightWidth  // qmllint disable unqualified
            least: bar.width - titleSize.implicitWidth / 2 - 60 - bar.rightWidth  // qmllint disable unqualified
            onClicked: bar.back()  // qmllint disable unqualified
        }
    }
    Loader {
        id: actionPlace

        anchors.right: parent.right
        anchors.rightMargin: 6
        height: parent.height
        active: bar.actionName !== ""
        sourceComponent: BarButton {
            objectName: "action"
            width: Theme.barHeight
            text: bar.actionName  // qmllint disable unqualified
            onClicked: bar.acted()  // qmllint disable unqualified

            ComposeIcon {
                anchors.centerIn: parent
            }
        }
    }

    Text {
        id: title

        // In the middle of the window while it fits there, else in what is left of it.
        readonly property real freeWidth: bar.width - bar.leftWidth - bar.rightWidth
        readonly property real centered: (bar.width - width) / 2

        x: Math.max(bar.leftWidth, Math.min(centered, bar.width - bar.rightWidth - width))
        width: Math.min(titleSize.implicitWidth + 1, freeWidth)
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: bar.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        // To fit it Qt loads a font of each size that it tries.
        fontSizeMode: bar.width > 0 && titleSize.implicitWidth > freeWidth ? Text.Fit : Text.FixedSize
        minimumPixelSize: Math.round(Theme.body * 0.7)
        color: Theme.text
        font.pixelSize: Theme.body
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Rectangle {
        width: parent.width
        height: Theme.line
        anchors.bottom: parent.bottom
        visible: bar.raised
        color: Theme.separator
    }
}
