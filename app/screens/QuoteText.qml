import QtQuick
import Velmorin.Controls

/// A sentence in large type, in the middle of its place, and somewhat smaller where it would not fit.
AppText {
    id: root

    weight: Font.Medium
    wrapMode: Text.Wrap
    fontSizeMode: Text.VerticalFit
    minimumPixelSize: 0.7 * size
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    lineHeight: 1 + 0.28 * size / metrics.lineSpacing

    FontMetrics {
        id: metrics

        font: root.font
    }
}
