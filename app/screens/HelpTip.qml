import QtQuick
import QtQuick.Templates as T
import Velmorin.Shell
import Velmorin.Controls

/// What more there is to say about its parent, under it while the mouse rests there or the keyboard has led there.
T.ToolTip {
    id: root

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 6 : 0
    implicitWidth: Math.min(320, contentItem.implicitWidth + leftPadding + rightPadding)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    horizontalPadding: 12
    verticalPadding: 8
    delay: 500
    timeout: -1
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: AppText {
        isSaid: true
        text: root.text
        size: 13
        color: Theme.ink
        wrapMode: Text.Wrap
        // Tips are not among the window's own items, which are mirrored with it.
        LayoutMirroring.enabled: Texts.isRightToLeft
    }

    background: Rectangle {
        radius: 10
        color: Theme.base
        border.width: 1
        border.color: Theme.line
    }
}
