import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// Whether one browser can be read, and how to come there.
ColumnLayout {
    id: root

    required property BrowserRow row

    spacing: 10

    RowLayout {
        Layout.fillWidth: true
        spacing: 14

        SoftButton {
            text: root.row.checkText
            onClicked: root.row.check()
        }

        QuietLink {
            visible: text !== ""
            text: root.row.setUpText
            onClicked: root.row.setUp()
        }
    }

    AppText {
        Layout.fillWidth: true
        visible: text !== ""
        text: root.row.message
        size: 14
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    ColumnLayout {
        Layout.fillWidth: true
        visible: root.row.steps.length > 0
        spacing: 6

        Repeater {
            model: root.row.steps

            AppText {
                required property string modelData

                Layout.fillWidth: true
                text: modelData
                size: 14
                wrapMode: Text.Wrap
            }
        }

        RowLayout {
            spacing: 18

            QuietLink {
                text: root.row.copyAddressText
                onClicked: root.row.copyAddress()
            }

            QuietLink {
                text: root.row.copyFolderText
                onClicked: root.row.copyFolder()
            }
        }
    }
}
