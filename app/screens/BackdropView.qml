import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// What stands behind the windows during the locked stretches of a session: the time, a sentence, the goal.
Item {
    id: root

    required property SessionModel session
    /// What every size is multiplied by.
    required property real unit
    readonly property bool shown: visible && Window.visibility !== Window.Hidden

    LayoutMirroring.enabled: Texts.isRightToLeft
    LayoutMirroring.childrenInherit: true

    BackdropModel {
        id: backdrop

        session: root.session
        isShown: root.shown
    }

    ThemeBackground {
        anchors.fill: parent
    }

    ScreenColumn {
        anchors.centerIn: parent
        width: Math.min(parent.width - 80 * root.unit, 900 * root.unit)
        height: parent.height - 2 * Math.max(10, Math.min(40 * root.unit, parent.height * 0.2 - 120))
        unit: root.unit
        largestGap: 26

        BackdropClock {
            width: parent.width
            backdrop: backdrop
            unit: root.unit
        }

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            category: backdrop.category
            alternate: backdrop.alternate
            rotateEvery: 60
            size: 38
        }

        AppText {
            objectName: "intent"
            width: parent.width
            visible: text !== ""
            text: root.session.intent
            weight: Font.Medium
            size: 20 * root.unit
            wrapMode: Text.Wrap
            maximumLineCount: 4
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
        }

        NoticeLine {
            width: parent.width
            visible: text !== ""
            text: root.session.phoneProblem
            unit: root.unit
        }

        ThoughtBox {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, 520 * root.unit)
            visible: backdrop.takesThoughts
            unit: root.unit
            keys: backdrop.thoughtKeys
            onClicked: backdrop.writeThought()
        }

        footer: QuietLink {
            anchors.horizontalCenter: parent.horizontalCenter
            text: Texts.floatingEndSession
            unit: root.unit
            onClicked: root.session.beginEmergencyExit()
        }
    }
}
