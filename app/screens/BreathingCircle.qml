import QtQuick
import Velmorin.Controls
import Velmorin.Screens

/// A slow breath to follow: four seconds in, four seconds out.
Item {
    id: root

    required property real unit
    required property bool shown
    readonly property bool breathes: shown && !Theme.reducesMotion
    /// How far the breath has come in, from 0 to 1.
    property real breath: 0

    implicitWidth: 100 * unit
    implicitHeight: 100 * unit
    onBreathesChanged: if (!breathes) breath = 0
    Accessible.ignored: true

    SequentialAnimation {
        running: root.breathes
        loops: Animation.Infinite

        NumberAnimation {
            target: root
            property: "breath"
            from: 0
            to: 1
            duration: 4000
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: root
            property: "breath"
            from: 1
            to: 0
            duration: 4000
            easing.type: Easing.InOutQuad
        }
    }

    BreathingDisc {
        objectName: "disc"
        anchors.centerIn: parent
        width: 72 * root.unit
        height: width
        unit: root.unit
        color: Theme.accent
        breath: root.breath
    }
}
