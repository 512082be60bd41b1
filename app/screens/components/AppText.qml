import QtQuick
import Velmorin.Controls

/// Text in the program's type face, plain and aligned to the leading edge.
Text {
    property int weight: Font.Normal
    /// The height of the type in pixels.
    property real size: 15
    /// Whether a control around it already says it, so that it is not read twice.
    property bool isSaid: false

    color: Theme.ink
    font.family: Theme.family
    font.weight: weight
    font.pixelSize: Math.max(1, Math.round(size))
    textFormat: Text.PlainText
    // The edge that is left where nothing is mirrored.
    horizontalAlignment: Text.AlignLeft

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: isSaid || !text
}
