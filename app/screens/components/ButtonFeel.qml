import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// How every button of ours feels: pressed by Return as by Space, once for a key that is held down, and paler while it is
/// down or disabled. A button forwards its keys here.
Item {
    id: root

    required property T.AbstractButton button
    /// How much of the button is seen while it is down.
    property real pressedOpacity: 1
    /// How much is seen now, on the way there and back.
    property real shownOpacity: button.down ? pressedOpacity : 1
    /// The same for its content, which is pale while the button is disabled.
    readonly property real contentOpacity: shownOpacity * (button.enabled ? 1 : 0.5)

    /// What a click does.
    function press() {
        if (button.enabled)
            button.clicked();
    }

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
