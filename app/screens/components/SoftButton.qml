import QtQuick
import Velmorin.Controls

/// A button beside the one that matters most.
PlainButton {
    id: root

    implicitHeight: 42
    horizontalPadding: 16
    pressedOpacity: 0.7

    background: Rectangle {
        radius: 12
        color: Theme.accentSoft
        opacity: root.contentOpacity

        FocusRing {
            visible: root.visualFocus
            cornerRadius: 12
        }
    }

    contentItem: AppText {
        isSaid: true
        text: root.text
        weight: Font.Medium
        size: 15
        opacity: root.contentOpacity
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
