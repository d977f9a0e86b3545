import QtQuick

// The page's title, the way back, and what the page does from here.
Rectangle {
    id: bar

    property string title
    property string backTitle
    property bool canGoBack: false
    property string actionName   // empty: no button at the right
    readonly property alias action: actionButton
    property bool raised: false  // rows pass below
    property real extraWidth: 0  // of what stands left of that button

    signal back
    signal acted

    implicitHeight: Theme.barHeight
    color: raised ? Theme.bar : Theme.background

    readonly property real rightWidth: (actionName !== "" ? actionButton.width + 8 : extraWidth > 0 ? 6 : Theme.inset) + extraWidth
    readonly property real leftWidth: canGoBack ? backButton.width + 12 : Theme.inset
    // Where both titles don't fit the page's own is the one to keep.
    readonly property bool namesBack: titleSize.advanceWidth + Math.min(backSize.advanceWidth, width * 0.36) + 60 + rightWidth < width

    TextMetrics {
        id: titleSize
        text: bar.title
        font.pixelSize: Theme.body
        font.weight: title.font.weight
    }
    TextMetrics {
        id: backSize
        text: backName.text
        font: backName.font
    }

    PressButton {
        id: backButton

        objectName: "back"
        x: 4
        width: Math.min(backContent.implicitWidth + 16, bar.width * 0.36)
        height: parent.height
        visible: bar.canGoBack
        focusPolicy: Qt.TabFocus
        text: qsTr("Back")
        opacity: down ? 0.4 : 1
        onClicked: bar.back()
        Accessible.description: bar.backTitle

        Row {
            id: backContent

            x: 8
            height: parent.height
            spacing: 7

            Chevron {
                anchors.verticalCenter: parent.verticalCenter
                back: true
                arm: Theme.unit(12)
                thickness: 2.4 * Theme.scale
                color: Theme.accentText
            }
            Text {
                id: backName

                anchors.verticalCenter: parent.verticalCenter
                visible: bar.namesBack
                width: Math.min(implicitWidth, bar.width * 0.36 - 36)
                text: bar.backTitle !== "" ? bar.backTitle : backButton.text
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.accentText
                font.pixelSize: Theme.body
                Accessible.ignored: true
            }
        }
        FocusRing {
            of: backButton
        }
    }

    PressButton {
        id: actionButton

        objectName: "action"
        anchors.right: parent.right
        anchors.rightMargin: 6
        width: Theme.barHeight
        height: parent.height
        visible: bar.actionName !== ""
        focusPolicy: Qt.TabFocus
        text: bar.actionName
        opacity: down ? 0.4 : 1
        onClicked: bar.acted()

        ComposeIcon {
            anchors.centerIn: parent
        }
        FocusRing {
            of: actionButton
        }
    }

    Text {
        id: title

        // In the middle of the window while it fits there, else in what is left of it.
        readonly property real freeWidth: bar.width - bar.leftWidth - bar.rightWidth
        readonly property real centered: (bar.width - width) / 2

        x: Math.max(bar.leftWidth, Math.min(centered, bar.width - bar.rightWidth - width))
        width: Math.min(Math.ceil(titleSize.advanceWidth) + 1, freeWidth)
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: bar.title
        textFormat: Text.PlainText
        elide: Text.ElideRight
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        fontSizeMode: Text.Fit
        minimumPixelSize: Math.round(Theme.body * 0.7)
        color: Theme.text
        font.pixelSize: Theme.body
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Rectangle {
        width: parent.width
        height: 1
        anchors.bottom: parent.bottom
        visible: bar.raised
        color: Theme.separator
    }
}
