import QtQuick

// A part of the window that is made when it is first wanted, and stays.
Loader {
    property bool wanted: false
    property string file
    property var values: ({})  // its properties at the start

    function load() {
        if (wanted && status === Loader.Null)
            setSource(file, values);
    }

    onWantedChanged: load()
    Component.onCompleted: load()
}
