import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// What the displays show beside the one with the overlay: a sentence, and the goal. Nothing here can be pressed.
Item {
    id: root

    required property SessionModel session
    required property real unit
    required property bool shown

    enabled: false

    SecondaryModel {
        id: secondary

        session: root.session
        isShown: root.shown
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        spacing: 28 * root.unit

        RotatingQuote {
            width: parent.width
            session: root.session
            unit: root.unit
            shown: root.shown && root.session.overlay !== SessionModel.None
            category: secondary.category
            rotateEvery: 40
            size: 42
        }

        AppText {
            objectName: "intent"
            width: parent.width
            visible: text !== ""
            text: root.session.intent
            size: 20 * root.unit
            color: Theme.muted
            wrapMode: Text.Wrap
            maximumLineCount: 6
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
