import QtQuick
import Velmorin.Controls

/// What the user is here for, in the user's own words.
CardSurface {
    id: root

    required property real unit
    required property string label
    required property string intent
    property string detail

    cornerRadius: 18 * unit
    implicitHeight: column.implicitHeight + 36 * unit

    Column {
        id: column

        anchors.verticalCenter: parent.verticalCenter
        x: 24 * root.unit
        width: parent.width - 48 * root.unit
        spacing: 6 * root.unit

        AppText {
            width: parent.width
            text: root.label
            size: 14 * root.unit
            color: Theme.muted
            wrapMode: Text.Wrap
        }

        AppText {
            objectName: "intent"
            width: parent.width
            visible: text !== ""
            text: root.intent
            weight: Font.Medium
            size: 20 * root.unit
            wrapMode: Text.Wrap
            // What is longer must not push the way back off the screen.
            maximumLineCount: 6
            elide: Text.ElideRight
        }

        AppText {
            objectName: "detail"
            width: parent.width
            visible: text !== ""
            text: root.detail
            size: 15 * root.unit
            color: Theme.muted
            wrapMode: Text.Wrap
        }
    }
}
