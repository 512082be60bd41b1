import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Velmorin.Controls

/// A label and a switch. It says what it was asked for by `toggled`; what it shows is `isOn`.
T.CheckBox {
    id: root

    property string label
    property bool isOn: false
    /// Whether the label is to be seen; a screen reader always says it.
    property bool showsLabel: true

    signal toggled(bool on)

    text: label
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    // It never turns by itself.
    checkState: isOn ? Qt.Checked : Qt.Unchecked
    nextCheckState: () => root.isOn ? Qt.Checked : Qt.Unchecked
    onClicked: toggled(!isOn)
    Keys.forwardTo: [feel]

    Accessible.name: label
    Accessible.checkable: true
    Accessible.checked: isOn
    Accessible.onPressAction: feel.press()
    Accessible.onToggleAction: feel.press()

    contentItem: RowLayout {
        spacing: 12
        opacity: feel.contentOpacity

        AppText {
            isSaid: true
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

    ButtonFeel {
        id: feel

        button: root
        pressedOpacity: 0.85
    }
}
