import QtQuick
import QtQuick.Shapes

// About as much as a screen of the overlay shows: a background of gradients, a quote, a card, a circle and buttons.
Rectangle {
    id: root

    required property bool isPrimary
    required property real unit

    color: "#1b1f2a"

    Shape {
        anchors.fill: parent

        ShapePath {
            strokeWidth: -1
            fillGradient: RadialGradient {
                centerX: root.width * 0.2
                centerY: root.height * 0.1
                focalX: centerX
                focalY: centerY
                centerRadius: root.width * 0.7
                GradientStop { position: 0; color: "#40506080" }
                GradientStop { position: 1; color: "transparent" }
            }
            PathLine { x: root.width; y: 0 }
            PathLine { x: root.width; y: root.height }
            PathLine { x: 0; y: root.height }
        }
    }
    Column {
        anchors.centerIn: parent
        spacing: 26 * root.unit

        Repeater {
            model: 3
            Text {
                width: 700
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                text: "A calm hour is worth more than a loud day, and nobody but you can give it to yourself."
                font.pixelSize: 30 * root.unit
                color: "#e8e4da"
            }
        }
        Rectangle {
            width: 700
            height: 160 * root.unit
            radius: 22
            color: "#20ffffff"
        }
        Rectangle {
            width: 260
            height: 56 * root.unit
            radius: height / 2
            color: "#c9a26a"
        }
        TextInput {
            focus: root.isPrimary
            width: 700
            color: "#e8e4da"
        }
    }
}
