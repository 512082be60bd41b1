import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// A box that looks like a place to write and opens one.
ClearTextButton {
    id: root

    required property real unit
    /// The keys that do the same from anywhere; empty where there are none.
    required property string keys

    text: Texts.thoughtBoxPrompt
    implicitHeight: 56 * unit

    FieldBox {
        width: root.width
        height: root.height
        unit: root.unit

        Symbol {
            name: "pencil"
            size: 20 * root.unit
            color: Theme.muted
        }

        AppText {
            isSaid: true
            Layout.fillWidth: true
            text: root.text
            size: 16 * root.unit
            elide: Text.ElideRight
        }

        AppText {
            isSaid: true
            text: root.keys
            size: 14 * root.unit
            color: Theme.muted
        }
    }
}
