import QtQuick
import Velmorin.Controls

/// A figure, and what it counts.
CardSurface {
    id: root

    required property real unit
    required property string value
    required property string label

    cornerRadius: 18 * unit
    implicitHeight: column.implicitHeight + 40 * unit

    Column {
        id: column

        y: 20 * root.unit
        x: 10
        width: parent.width - 20
        spacing: 6 * root.unit

        AppText {
            width: parent.width
            text: root.value
            weight: Font.DemiBold
            size: 24 * root.unit
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 10
            maximumLineCount: 1
            horizontalAlignment: Text.AlignHCenter
        }

        AppText {
            width: parent.width
            text: root.label
            size: 14 * root.unit
            color: Theme.muted
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
