import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// A rest away from the machine, with the thoughts that were kept for it.
FocusScope {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    RestModel {
        id: rest

        session: root.session
        isShown: root.shown
    }

    ScreenColumn {
        anchors.fill: parent
        unit: root.unit

        AppText {
            width: parent.width
            text: Texts.breakTime
            weight: Font.DemiBold
            size: 21 * root.unit
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown
            category: QuoteTask.Rest
            rotateEvery: 30
            size: 42
        }

        AppText {
            objectName: "restLeft"
            width: parent.width
            visible: text !== ""
            text: rest.restLeft
            weight: Font.Medium
            size: 19 * root.unit
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        KeptThoughts {
            width: parent.width
            unit: root.unit
            rest: rest
        }

        footer: QuietLink {
            anchors.horizontalCenter: parent.horizontalCenter
            text: Texts.backEarly
            unit: root.unit
            onClicked: root.session.returnToWork()
        }
    }
}
