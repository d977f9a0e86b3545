import QtQuick
import Quorvantis.Settings

// What is shown over the pages: search, what differs, profiles.
FocusScope {
    required property Tools tools
    property string heading

    signal done  // nothing more to show
}
