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
    Accessible.onToggleAction: root.press()
    onClicked: toggled(!isOn)

    contentItem: RowLayout {
        spacing: 12
        opacity: root.contentOpacity

        AppText {
            Layout.fillWidth: true
            visible: root.showsLabel && text !== ""
            text: root.label
            wrapMode: Text.Wrap
        }

        ToggleSwitch {
            isOn: root.isOn
            isMirrored: root.mirrored
            hasFocus: root.visualFocus
        }
    }
}
