import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// What most buttons share, with nothing to see yet.
T.AbstractButton {
    id: root

    property alias pressedOpacity: feel.pressedOpacity
    readonly property alias shownOpacity: feel.shownOpacity
    readonly property alias contentOpacity: feel.contentOpacity

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    Keys.forwardTo: [feel]

    Accessible.name: text
    Accessible.onPressAction: feel.press()

    ButtonFeel {
        id: feel

        button: root
    }
}
