import QtQuick
import Velmorin.Controls

/// A raised surface. It is as large as its only child with its margins, unless it is told otherwise.
Rectangle {
    id: root

    property real cornerRadius: 18
    readonly property Item only: children.length === 1 ? children[0] : null

    implicitWidth: only ? only.implicitWidth + only.anchors.leftMargin + only.anchors.rightMargin : 0
    implicitHeight: only ? only.implicitHeight + only.anchors.topMargin + only.anchors.bottomMargin : 0
    radius: cornerRadius
    color: Theme.raised
    border.width: 1
    border.color: Theme.line
}
