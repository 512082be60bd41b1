import QtQuick
import Velmorin.Controls

/// The one button of a screen that matters most.
PlainButton {
    id: root

    property real unit: 1
    readonly property real shrink: down ? 0.985 : 1
    property real shownShrink: shrink

    implicitWidth: Math.max(280 * unit, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(60 * unit, implicitContentHeight + topPadding + bottomPadding)
    horizontalPadding: 32 * unit
    verticalPadding: 8 * unit
    pressedOpacity: 0.85

    Behavior on shownShrink {
        enabled: !Theme.reducesMotion

        NumberAnimation {
            duration: 120
            easing.type: Easing.OutQuad
        }
    }

    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: parent.width * root.shownShrink
            height: parent.height * root.shownShrink
            radius: 20 * root.unit
            color: Theme.accent
            opacity: (root.enabled ? 1 : 0.28) * root.shownOpacity
        }

        FocusRing {
            visible: root.visualFocus
            cornerRadius: 20 * root.unit
        }
    }

    contentItem: AppText {
        isSaid: true
        text: root.text
        weight: Font.Bold
        size: 19 * root.unit
        color: Theme.onAccent
        opacity: root.shownOpacity
        scale: root.shownShrink
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
