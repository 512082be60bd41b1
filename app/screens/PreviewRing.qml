import QtQuick
import Velmorin.Controls
import Velmorin.Screens

/// A ring of which a part is filled, with a short text in it and a label under that.
Item {
    id: root

    required property real fraction
    required property string text
    required property string label

    implicitWidth: 220
    implicitHeight: 220

    RingDrawing {
        anchors.fill: parent
        fraction: root.fraction
    }

    Column {
        anchors.centerIn: parent
        width: 0.74 * root.width
        spacing: 2

        AppText {
            width: parent.width
            height: 54
            text: root.text
            weight: Font.DemiBold
            size: 44
            fontSizeMode: Text.Fit
            minimumPixelSize: 16
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            isSaid: true
        }

        AppText {
            width: parent.width
            text: root.label
            size: 14
            color: Theme.muted
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            isSaid: true
        }
    }
}
