import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// A way out that does not call for attention: bare words, with an icon before them if `icon.name` names one.
PlainButton {
    id: root

    property real unit: 1

    pressedOpacity: 0.75

    contentItem: RowLayout {
        spacing: 6 * root.unit
        opacity: root.contentOpacity

        Symbol {
            visible: root.icon.name !== ""
            name: root.icon.name
            size: 16 * root.unit
            color: Theme.muted
        }

        AppText {
            isSaid: true
            Layout.fillWidth: true
            text: root.text
            size: 15 * root.unit
            color: Theme.muted
            wrapMode: Text.Wrap
        }
    }

    background: Item {
        FocusRing {
            visible: root.visualFocus
            cornerRadius: 6
        }
    }
}
