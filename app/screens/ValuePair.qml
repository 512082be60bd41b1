import QtQuick
import Velmorin.Controls

/// A value under the word for it.
Column {
    id: root

    required property string label
    required property string value
    required property real unit

    spacing: 2 * unit

    AppText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.label
        size: 14 * root.unit
        color: Theme.muted
    }

    AppText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.value
        weight: Font.DemiBold
        size: 22 * root.unit
    }
}
