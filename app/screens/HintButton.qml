import QtQuick
import Velmorin.Controls

/// A bare button that says, while it cannot be pressed, what it is waiting for.
PlainButton {
    id: root

    required property real unit

    implicitHeight: 44 * unit
    pressedOpacity: 0.75

    contentItem: AppText {
        text: root.text
        size: 15 * root.unit
        color: root.enabled ? Theme.ink : Theme.muted
        opacity: root.shownOpacity
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Item {
        FocusRing {
            visible: root.visualFocus
            cornerRadius: 8
        }
    }
}
