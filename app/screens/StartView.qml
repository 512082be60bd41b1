import QtQuick
import QtQuick.Layouts
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

    RowLayout {
        id: columns

        x: (root.width - width) / 2
        y: 34
        width: Math.min(900, root.width) - 48
        visible: root.model.hasProfile
        spacing: 28

        StartForm {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            model: root.model
        }

        StartPreview {
            Layout.preferredWidth: 250
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 12
            model: root.model
        }
    }
}
