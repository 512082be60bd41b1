import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// A name with a button that removes it.
RowLayout {
    id: root

    required property string name
    /// What the button says.
    required property string removal
    property bool isLeftToRight: false
    readonly property Item button: button

    signal removed(bool byKeyboard)

    Layout.fillWidth: true
    spacing: 12

    AppText {
        Layout.fillWidth: true
        text: root.isLeftToRight ? "\u2066" + root.name + "\u2069" : root.name
        elide: Text.ElideRight
    }

    ClearTextButton {
        id: button

        text: root.removal
        padding: 6
        onClicked: root.removed(visualFocus)

        RemoveIcon {}
    }
}
