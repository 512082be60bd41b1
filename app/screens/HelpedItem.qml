import QtQuick

/// Something to look at, with a tip that says what it means. A screen reader says it as well.
Item {
    id: root

    required property string help

    implicitWidth: childrenRect.width
    implicitHeight: childrenRect.height
    Accessible.role: Accessible.StaticText
    Accessible.name: help

    HoverHandler {
        id: hover
    }

    HelpTip {
        text: root.help
        visible: hover.hovered
    }
}
