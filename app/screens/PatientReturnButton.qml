import QtQuick
import QtQuick.Templates as T
import Velmorin.Shell
import Velmorin.Controls
import Velmorin.Screens

/// The way back to work, which fills as the pause passes and can be taken once it is full. Only a press on purpose
/// counts: a key that is held down does nothing.
T.AbstractButton {
    id: root

    required property WarningModel warning
    required property real unit
    /// What is filled, from 0 to 1, from the leading edge.
    property real filling: warning.progress
    readonly property color bar: warning.isReady ? Theme.accent
                                                 : Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.35)

    implicitWidth: 340 * unit
    implicitHeight: 56 * unit
    enabled: warning.isReady
    focusPolicy: Qt.TabFocus
    text: warning.isReady ? Texts.backToWork : Texts.breathing
    onClicked: warning.returnToWork()

    Accessible.role: Accessible.Button
    Accessible.name: text

    Behavior on filling {
        NumberAnimation {
            duration: 250
        }
    }

    KeyTap {
        id: tap

        takesSpace: true
    }

    Keys.onPressed: event => event.accepted = tap.press(event.key, event.isAutoRepeat)
    Keys.onReleased: event => {
        if (tap.release(event.key, event.isAutoRepeat))
            warning.returnToWork();
    }

    background: FilledCapsule {
        share: root.filling
        isMirrored: Texts.isRightToLeft
        bar: root.bar
        ground: Theme.raised
        line: Theme.line
        opacity: root.down ? 0.85 : 1

        FocusRing {
            visible: root.visualFocus
            cornerRadius: parent.height / 2
        }
    }

    contentItem: AppText {
        isSaid: true
        text: root.text
        weight: Font.DemiBold
        size: 19 * root.unit
        color: root.warning.isReady ? Theme.onAccent : Theme.ink
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
