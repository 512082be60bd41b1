import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// The whole of an overlay window: the screen of the present state on the primary display, a calm one on any other.
FocusScope {
    id: root

    required property SessionModel session
    required property bool isPrimary
    /// What every size is multiplied by.
    required property real unit
    readonly property bool shown: visible && Window.visibility !== Window.Hidden
    /// Above and below, where the screen is too low for more.
    readonly property real leastPadding: 10
    readonly property real padding: (isPrimary ? 40 : 48) * unit

    /// The component of a state; null where there is nothing to show.
    function screen(overlay: int): Component {
        switch (overlay) {
        case SessionModel.Warning: return warning;
        case SessionModel.EmergencyExit: return exit;
        case SessionModel.Finished: return finished;
        case SessionModel.LockedBreak: return lockedBreak;
        case SessionModel.BackToWork: return backToWork;
        default: return null;
        }
    }

    focus: true
    LayoutMirroring.enabled: Texts.isRightToLeft
    LayoutMirroring.childrenInherit: true

    ThemeBackground {
        anchors.fill: parent
    }

    Loader {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * root.padding, (root.isPrimary ? 760 : 900) * root.unit)
        height: parent.height - 2 * Math.max(root.leastPadding, Math.min(root.padding, parent.height * 0.2 - 120))
        focus: true
        sourceComponent: root.isPrimary ? root.screen(root.session.overlay) : secondary
    }

    Component {
        id: warning

        WarningScreen {
            session: root.session
            unit: root.unit
            shown: root.shown
            focus: true
        }
    }

    Component {
        id: exit

        EmergencyExitScreen {
            session: root.session
            unit: root.unit
            shown: root.shown
            focus: true
        }
    }

    Component {
        id: finished

        FinishedScreen {
            session: root.session
            unit: root.unit
            shown: root.shown
            focus: true
        }
    }

    Component {
        id: lockedBreak

        LockedBreakScreen {
            session: root.session
            unit: root.unit
            shown: root.shown
            focus: true
        }
    }

    Component {
        id: backToWork

        BackToWorkScreen {
            session: root.session
            unit: root.unit
            shown: root.shown
            focus: true
        }
    }

    Component {
        id: secondary

        SecondaryScreen {
            session: root.session
            unit: root.unit
            shown: root.shown
        }
    }
}
