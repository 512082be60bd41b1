import QtQuick
import Velmorin.Controls

/// The program's mark.
Item {
    id: root

    property real size: 64
    /// The file of its picture.
    property alias source: mark.source

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    MarkDrawing {
        id: mark

        source: ":/qt/qml/Velmorin/Controls/AppMark.png"
        anchors.fill: parent
        visible: isLoaded
    }

    Symbol {
        visible: !mark.isLoaded
        name: "scope"
        size: root.size
        color: Theme.accent
    }
}
