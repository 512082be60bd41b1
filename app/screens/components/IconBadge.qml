import QtQuick
import Velmorin.Controls

/// An icon on a rounded square.
Rectangle {
    id: root

    property string icon
    property real size: 36

    implicitWidth: size
    implicitHeight: size
    radius: size * 0.28
    color: Theme.accentSoft

    Symbol {
        anchors.centerIn: parent
        name: root.icon
        size: root.size * 0.46
        color: Theme.accent
    }
}
