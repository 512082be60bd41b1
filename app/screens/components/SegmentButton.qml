import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// One option of a SegmentedBar.
T.RadioButton {
    id: root

    required property bool isSelected
    /// Whether the Tab key stops here.
    required property bool isStop

    /// Another option is wanted, so many places after this one.
    signal moved(int places)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 38
    horizontalPadding: 14
    focusPolicy: isStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    // The bar chooses, not the button.
    checkable: false
    Keys.forwardTo: [feel]
    Keys.onLeftPressed: moved(mirrored ? 1 : -1)
    Keys.onRightPressed: moved(mirrored ? -1 : 1)
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)

    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onPressAction: feel.press()
    Accessible.onToggleAction: feel.press()

    background: Rectangle {
        radius: 10
        color: root.isSelected ? Theme.accent : "transparent"
        opacity: feel.contentOpacity

        FocusRing {
            visible: root.visualFocus
            cornerRadius: 10
            distance: 2
        }
    }

    contentItem: AppText {
        isSaid: true
        text: root.text
        weight: root.isSelected ? Font.DemiBold : Font.Normal
        size: 15
        color: root.isSelected ? Theme.onAccent : Theme.ink
        opacity: feel.contentOpacity
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    ButtonFeel {
        id: feel

        button: root
        pressedOpacity: 0.75
    }
}
