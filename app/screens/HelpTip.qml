import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// What more there is to say about its parent, beside it while the mouse rests there or the keyboard has led there.
T.ToolTip {
    id: root

    y: -implicitHeight - 8
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
    }

    background: Rectangle {
        radius: 10
        color: Theme.base
        border.width: 1
        border.color: Theme.line
    }
}
