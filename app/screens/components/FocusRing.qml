import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// The ring around its parent while the keyboard has led the focus there.
Rectangle {
    id: root

    /// The corners of what it surrounds.
    property real cornerRadius: 10
    property real distance: 3

    anchors.fill: parent
    anchors.margins: -distance
    visible: (parent as T.Control)?.visualFocus ?? parent?.activeFocus ?? false
    radius: cornerRadius + distance
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    z: 1
}
