import QtQuick
import Velmorin.Controls

/// A button that looks like what is in it: its text, or the one thing that is put there. All of it can be clicked.
PlainButton {
    id: root

    default property alias content: slot.data
    property int weight: Font.Normal
    property real size: 15
    property color color: Theme.ink
    readonly property Item only: slot.children.length === 1 ? slot.children[0] : null

    implicitWidth: only ? only.implicitWidth + only.anchors.leftMargin + only.anchors.rightMargin + leftPadding + rightPadding
                        : implicitContentWidth + leftPadding + rightPadding
    implicitHeight: only ? only.implicitHeight + only.anchors.topMargin + only.anchors.bottomMargin + topPadding + bottomPadding
                         : implicitContentHeight + topPadding + bottomPadding
    pressedOpacity: 0.75

    contentItem: AppText {
        isSaid: true
        visible: root.only === null
        text: root.text
        weight: root.weight
        size: root.size
        color: root.color
        opacity: root.contentOpacity
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }

    background: Item {
        FocusRing {
            visible: root.visualFocus
            cornerRadius: 8
        }
    }

    data: Item {
        id: slot

        x: root.leftPadding
        y: root.topPadding
        width: root.availableWidth
        height: root.availableHeight
        opacity: root.contentOpacity
    }
}
