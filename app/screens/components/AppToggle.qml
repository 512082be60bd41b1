import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// A label and a switch. It says what it was asked for by `toggled`; what it shows is `isOn`.
PlainButton {
    id: root

    property string label
    property bool isOn: false
    /// Whether the label is to be seen; a screen reader always says it.
    property bool showsLabel: true

    signal toggled(bool on)

    text: label
    pressedOpacity: 0.85
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isOn
    Accessible.onToggleAction: click()
    onClicked: toggled(!isOn)

    contentItem: RowLayout {
        spacing: 12
        opacity: root.shownOpacity * (root.enabled ? 1 : 0.5)

        AppText {
            Layout.fillWidth: true
            visible: root.showsLabel && text !== ""
            text: root.label
            wrapMode: Text.Wrap
        }

        Rectangle {
            id: capsule

            readonly property bool isMirrored: root.mirrored

            implicitWidth: 46
            implicitHeight: 26
            radius: height / 2
            color: root.isOn ? Theme.accent : Theme.line

            Rectangle {
                readonly property real travel: root.isOn !== capsule.isMirrored ? capsule.width - width - 3 : 3

                x: travel
                y: 3
                width: 20
                height: 20
                radius: 10
                color: root.isOn ? Theme.onAccent : Theme.ink

                Behavior on x {
                    enabled: !Theme.reducesMotion

                    NumberAnimation {
                        duration: 150
                        easing.type: Easing.OutQuad
                    }
                }
            }

            FocusRing {
                visible: root.visualFocus
                cornerRadius: capsule.radius
            }
        }
    }
}
