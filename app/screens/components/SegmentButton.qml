import QtQuick
import Velmorin.Controls

/// One option of a SegmentedBar.
PlainButton {
    id: root

    required property bool isSelected
    /// Whether the Tab key stops here.
    required property bool isStop

    /// Another option is wanted, so many places after this one.
    signal moved(int places)

    implicitHeight: 38
    horizontalPadding: 14
    pressedOpacity: 0.75
    focusPolicy: isStop ? Qt.StrongFocus : Qt.ClickFocus
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isSelected

    Keys.onLeftPressed: moved(mirrored ? 1 : -1)
    Keys.onRightPressed: moved(mirrored ? -1 : 1)
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)

    background: Rectangle {
        radius: 10
        color: root.isSelected ? Theme.accent : "transparent"
        opacity: root.contentOpacity

        FocusRing {
            visible: root.visualFocus
            cornerRadius: 10
            distance: 2
        }
    }

    contentItem: AppText {
        text: root.text
        weight: root.isSelected ? Font.DemiBold : Font.Normal
        size: 15
        color: root.isSelected ? Theme.onAccent : Theme.ink
        opacity: root.contentOpacity
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
