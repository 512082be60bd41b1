import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// One page of the main window: a scrolling column under a title, and what stands at its end.
ScrollArea {
    id: root

    default property alias content: column.data
    property string title
    property string subtitle
    property Component footer

    contentHeight: page.implicitHeight + 60

    ColumnLayout {
        id: page

        x: (root.width - width) / 2
        y: 30
        width: Math.min(680, root.width - 48)
        spacing: 18

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 18

            AppText {
                Layout.fillWidth: true
                text: root.title
                weight: Font.DemiBold
                size: 32
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            AppText {
                Layout.fillWidth: true
                visible: text !== ""
                text: root.subtitle
                size: 16
                color: Theme.muted
                wrapMode: Text.Wrap
            }
        }

        ColumnLayout {
            id: column

            Layout.fillWidth: true
            spacing: 18
        }

        Loader {
            Layout.fillWidth: true
            active: root.footer !== null
            visible: active
            sourceComponent: root.footer
        }
    }
}
