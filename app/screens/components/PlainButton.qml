import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// What all buttons share: nothing to see, pressed with the mouse, with Space or with Return. A key that is held down
/// presses once.
T.AbstractButton {
    id: root

    /// What a button shows while it is held down, on its way there and back.
    property real pressedOpacity: 1
    property real shownOpacity: down ? pressedOpacity : 1
    /// That of its content, which is pale while the button is disabled.
    readonly property real contentOpacity: shownOpacity * (enabled ? 1 : 0.5)

    /// What a click does.
    function press() {
        if (enabled)
            clicked();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.press()

    Keys.onPressed: event => {
        const presses = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        event.accepted = presses || event.key === Qt.Key_Space && event.isAutoRepeat;
        if (presses && !event.isAutoRepeat)
            press();
    }
    Keys.onReleased: event => event.accepted = event.key === Qt.Key_Space && event.isAutoRepeat

    Behavior on shownOpacity {
        enabled: !Theme.reducesMotion

        NumberAnimation {
            duration: 120
            easing.type: Easing.OutQuad
        }
    }
}
