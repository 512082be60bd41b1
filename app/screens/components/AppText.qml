import QtQuick
import Velmorin.Shell

/// Text in the program's type face, aligned to the leading edge.
Text {
    horizontalAlignment: Texts.isRightToLeft ? Text.AlignRight : Text.AlignLeft
}
