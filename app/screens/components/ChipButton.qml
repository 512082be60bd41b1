import QtQuick
import Velmorin.Controls

/// One of several things that can be chosen.
PlainButton {
    id: root

    property string title
    property bool isSelected: false

    text: title
    implicitHeight: 36
    horizontalPadding: 16
    pressedOpacity: 0.75
    Accessible.checkable: true
    Accessible.checked: isSelected

    background: Rectangle {
        radius: height / 2
        color: root.isSelected ? Theme.accent : "transparent"
        border.width: root.isSelected ? 0 : 1
        border.color: Theme.line
        opacity: root.contentOpacity

        FocusRing {
            visible: root.visualFocus
            cornerRadius: root.height / 2
        }
    }

    contentItem: AppText {
        isSaid: true
        text: root.title
        weight: root.isSelected ? Font.DemiBold : Font.Normal
        size: 15
        color: root.isSelected ? Theme.onAccent : Theme.ink
        opacity: root.contentOpacity
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
