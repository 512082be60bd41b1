import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// After a push against the lock: a breath, a sentence, the work, and the way back once the pause is over.
FocusScope {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    WarningModel {
        id: warning

        session: root.session
        isShown: root.shown
    }

    ScreenColumn {
        anchors.fill: parent
        unit: root.unit

        BreathingCircle {
            anchors.horizontalCenter: parent.horizontalCenter
            unit: root.unit
            shown: root.shown
        }

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            category: QuoteTask.Urge
            rotateEvery: 25
            size: 38
        }

        AppText {
            objectName: "canWait"
            width: parent.width
            text: warning.canWait
            weight: Font.Medium
            size: 18 * root.unit
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        IntentCard {
            width: parent.width
            unit: root.unit
            label: Texts.thisSessionWork
            intent: root.session.intent
            detail: warning.timeLeft
        }

        ThoughtField {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            focus: true
        }

        footer: [
            PatientReturnButton {
                anchors.horizontalCenter: parent.horizontalCenter
                warning: warning
                unit: root.unit
            },
            QuietLink {
                anchors.horizontalCenter: parent.horizontalCenter
                text: Texts.endSession
                unit: root.unit
                onClicked: root.session.beginEmergencyExit()
            }
        ]
    }
}
