import QtQuick
import Velmorin.Controls

/// A sentence in large type, in the middle of its place.
AppText {
    id: root

    weight: Font.Medium
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    lineHeight: 1 + 0.28 * size / metrics.lineSpacing

    FontMetrics {
        id: metrics

        font: root.font
    }
}
