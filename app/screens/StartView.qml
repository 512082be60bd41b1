import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// The page on which a session is prepared and begun.
ScrollArea {
    id: root

    required property StartModel model

    contentHeight: model.hasProfile ? columns.implicitHeight + 68 : height

    AppText {
        anchors.centerIn: parent
        visible: !root.model.hasProfile
        text: Texts.createProfileFirst
        size: 18
        color: Theme.muted
    }

    Row {
        id: columns

        x: (root.width - width) / 2
        y: 34
        width: Math.min(900, root.width) - 48
        visible: root.model.hasProfile
        spacing: 28

        StartForm {
            width: columns.width - preview.width - columns.spacing
            model: root.model
        }

        StartPreview {
            id: preview

            topPadding: 12
            width: 250
            model: root.model
        }
    }
}
