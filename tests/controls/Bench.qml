import QtQuick
import Velmorin.Shell

/// A place for the control under test, mirrored as a window's root is.
Item {
    width: 600
    height: 400
    LayoutMirroring.enabled: Texts.isRightToLeft
    LayoutMirroring.childrenInherit: true
}
