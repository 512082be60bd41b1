pragma ComponentBehavior: Bound

import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// Whether one browser can be read, and how to come there.
Column {
    id: root

    required property BrowserRow row

    spacing: 10

    Row {
        width: parent.width
        spacing: 14

        SoftButton {
            id: check

            text: root.row.checkText
            onClicked: root.row.check()
        }

        QuietLink {
            height: check.height
            visible: text !== ""
            text: root.row.setUpText
            onClicked: root.row.setUp()
        }
    }

    AppText {
        width: parent.width
        visible: text !== ""
        text: root.row.message
        size: 14
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    Repeater {
        model: root.row.steps

        AppText {
            required property string modelData

            width: root.width
            text: modelData
            size: 14
            wrapMode: Text.Wrap
        }
    }

    Row {
        width: parent.width
        visible: root.row.steps.length > 1
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
