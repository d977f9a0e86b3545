import QtQuick
import QtQuick.Templates as T
import Quorvantis.Settings

// One page: its bar, and below it what kind of page it is.
FocusScope {
    id: view

    required property PageModel page
    property bool canGoBack: false
    property bool byKeyboard: false  // how the page was opened

    signal back

    // The keyboard focus returns to where it was on this page, or is given to its first row.
    function takeFocus() {
        const rows = body.item as RowsView, choices = body.item as ChoicesView, swatches = body.item as SwatchesView;
        if (rows)
            rows.takeFocus();
        else if (choices)
            choices.takeFocus();
        else if (swatches)
            swatches.takeFocus();
    }

    function resume() {
        forceActiveFocus();
        if (KeyboardUse.active && (Window.activeFocusItem as ListView))
            takeFocus();
    }

    // What a sheet points to.
    function anchorOf(alert: AlertModel): Item {
        const rows = body.item as RowsView;
        if (alert.atBarButton)
            return bar.action;
        return rows && alert.anchorRow >= 0 ? rows.itemAtIndex(alert.anchorRow) : null;
    }

    function load() {
        if (page.error !== "")
            body.setSource("NoticeView.qml", { title: qsTr("This page can't be shown"), detail: page.error });
        else if (page.rows)
            body.setSource("RowsView.qml", { page: page });
        else if (page.choices)
            body.setSource("ChoicesView.qml", { page: page });
        else if (page.swatches)
            body.setSource("SwatchesView.qml", { page: page });
    }

    T.StackView.onActivated: {
        if (byKeyboard)
            takeFocus();
        byKeyboard = false;
    }
    Component.onCompleted: load()
    Component.onDestruction: page.viewGone()

    Connections {
        target: view.page

        function onKindChanged() {
            view.load();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.background
    }

    Loader {
        id: body

        anchors.top: bar.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        focus: true
    }
    NavigationBar {
        id: bar

        width: parent.width
        title: view.page.title
        backTitle: view.page.backTitle
        canGoBack: view.canGoBack
        actionName: view.page.barButton
        raised: body.item?.raised ?? false
        extraWidth: extras.width
        onBack: view.back()
        onActed: view.page.tapBarButton()
    }
    BarExtras {
        id: extras

        anchors.right: parent.right
        anchors.rightMargin: bar.rightWidth - width
        height: bar.height
        page: view.page
        first: !view.canGoBack
    }
}
