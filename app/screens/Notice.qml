import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// Something to take care of.
RowLayout {
    id: root

    required property string text

    Layout.fillWidth: true
    spacing: 8
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Symbol {
        Layout.alignment: Qt.AlignTop
        Layout.topMargin: 2
        name: "warning"
        size: 17
        color: Theme.notice
    }

    AppText {
        Layout.fillWidth: true
        text: root.text
        size: 14
        color: Theme.notice
        wrapMode: Text.Wrap
        isSaid: true
    }
}
