import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// A slider. It says what it was asked for by `moved`; what it shows is `value`.
FocusScope {
    id: root

    property real from: 0
    property real to: 1
    property real stepSize: 0
    property real value: 0
    property string accessibleName

    signal moved(real value)

    /// Asks for another value, within the ends.
    function ask(wanted: real) {
        const inside = Math.min(Math.max(wanted, from), to);
        if (inside !== value)
            moved(inside);
        slider.value = Qt.binding(() => root.value);
    }

    /// How far an arrow key goes.
    readonly property real keyStep: stepSize > 0 ? stepSize : (to - from) / 20

    implicitWidth: 200
    implicitHeight: 28

    T.Slider {
        id: slider

        // The names under which a screen reader asks for the ends.
        readonly property real minimumValue: from
        readonly property real maximumValue: to

        anchors.fill: parent
        focus: true
        enabled: root.enabled
        focusPolicy: Qt.StrongFocus
        leftPadding: 2
        rightPadding: 2
        from: root.from
        to: root.to
        stepSize: root.stepSize
        snapMode: T.Slider.SnapAlways
        value: root.value
        onMoved: root.ask(value)

        Accessible.role: Accessible.Slider
        Accessible.name: root.accessibleName
        Accessible.onIncreaseAction: root.ask(root.value + root.keyStep)
        Accessible.onDecreaseAction: root.ask(root.value - root.keyStep)

        Keys.onPressed: event => {
            const forward = mirrored ? -root.keyStep : root.keyStep;
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_Left: root.ask(root.value - forward); break;
            case Qt.Key_Right: root.ask(root.value + forward); break;
            case Qt.Key_Down: root.ask(root.value - root.keyStep); break;
            case Qt.Key_Up: root.ask(root.value + root.keyStep); break;
            case Qt.Key_PageDown: root.ask(root.value - 5 * root.keyStep); break;
            case Qt.Key_PageUp: root.ask(root.value + 5 * root.keyStep); break;
            case Qt.Key_Home: root.ask(root.from); break;
            case Qt.Key_End: root.ask(root.to); break;
            default: event.accepted = false;
            }
        }

        background: Rectangle {
            x: slider.leftPadding
            y: (slider.height - height) / 2
            width: slider.availableWidth
            height: 6
            radius: 3
            color: Theme.line

            Rectangle {
                x: slider.mirrored ? parent.width - width : 0
                width: slider.position * parent.width
                height: parent.height
                radius: 3
                color: Theme.accent
            }
        }

        handle: Rectangle {
            x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
            y: (slider.height - height) / 2
            width: 22
            height: 22
            radius: 11
            color: Theme.accent
            border.width: 4
            border.color: Theme.onAccent

            FocusRing {
                visible: slider.visualFocus
                cornerRadius: 11
            }
        }
    }
}
