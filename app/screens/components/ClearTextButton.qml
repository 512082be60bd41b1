import QtQuick
import Velmorin.Controls

/// A button that looks like what is in it: its text, or whatever is put there. All of it can be clicked.
PlainButton {
    id: root

    default property alias content: slot.data
    property int weight: Font.Normal
    property real size: 15
    property color color: Theme.ink
    readonly property bool hasContent: slot.children.length > 0

    pressedOpacity: 0.75

    contentItem: Item {
        implicitWidth: root.hasContent ? slot.childrenRect.width : label.implicitWidth
        implicitHeight: root.hasContent ? slot.childrenRect.height : label.implicitHeight
        opacity: root.shownOpacity * (root.enabled ? 1 : 0.5)

        Item {
            id: slot

            anchors.fill: parent
        }

        AppText {
            id: label

            anchors.fill: parent
            visible: !root.hasContent
            text: root.text
            weight: root.weight
            size: root.size
            color: root.color
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
        }
    }

    background: Item {
        FocusRing {
            visible: root.visualFocus
            cornerRadius: 8
        }
    }
}
