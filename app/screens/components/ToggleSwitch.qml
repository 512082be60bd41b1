import QtQuick
import Velmorin.Controls

/// The switch of an AppToggle: a capsule, and in it a disc at the side that is on or off.
Rectangle {
    id: root

    required property bool isOn
    required property bool isMirrored
    required property bool hasFocus

    implicitWidth: 46
    implicitHeight: 26
    radius: height / 2
    color: isOn ? Theme.accent : Theme.line

    Rectangle {
        x: root.isOn !== root.isMirrored ? root.width - width - 3 : 3
        y: 3
        width: 20
        height: 20
        radius: 10
        color: root.isOn ? Theme.onAccent : Theme.muted

        Behavior on x {
            enabled: !Theme.reducesMotion

            NumberAnimation {
                duration: 150
                easing.type: Easing.OutQuad
            }
        }
    }

    FocusRing {
        visible: root.hasFocus
        cornerRadius: root.radius
    }
}
