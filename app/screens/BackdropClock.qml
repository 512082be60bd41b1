import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// The time of day, on a dial whose rim shows what is left of the session, and both in figures.
Column {
    id: root

    required property BackdropModel backdrop
    required property real unit

    spacing: 16 * unit

    AnalogClock {
        anchors.horizontalCenter: parent.horizontalCenter
        date: root.backdrop.date
        remainingFraction: root.backdrop.remainingFraction
        size: 210 * root.unit
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 44 * root.unit

        ValuePair {
            label: Texts.clockLabel
            value: root.backdrop.timeOfDay
            unit: root.unit
        }

        ValuePair {
            label: Texts.remainingInSession
            value: root.backdrop.remaining
            unit: root.unit
        }
    }
}
