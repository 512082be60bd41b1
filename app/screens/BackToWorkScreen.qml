import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// The break is over; work begins when the user says so.
FocusScope {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    KeyTap {
        id: tap
    }

    Keys.onPressed: event => event.accepted = tap.press(event.key, event.isAutoRepeat)
    Keys.onReleased: event => {
        if (tap.release(event.key, event.isAutoRepeat))
            root.session.returnToWork();
    }

    ScreenColumn {
        anchors.fill: parent
        unit: root.unit

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            category: QuoteTask.Returning
            size: 38
        }

        IntentCard {
            width: parent.width
            unit: root.unit
            label: Texts.thisRoundWork
            intent: root.session.intent
            detail: root.session.remainingInSegment
        }

        footer: PrimaryPillButton {
            anchors.horizontalCenter: parent.horizontalCenter
            text: Texts.startNow
            unit: root.unit
            onClicked: root.session.returnToWork()
        }
    }
}
