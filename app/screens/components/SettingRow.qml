import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// One setting: what it is, and at the trailing edge the control that changes it.
RowLayout {
    id: root

    default property alias trailing: control.data
    property string icon
    property string title
    property string detail

    Layout.fillWidth: true
    spacing: 14

    IconBadge {
        visible: root.icon !== ""
        icon: root.icon
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2

        AppText {
            Layout.fillWidth: true
            text: root.title
            weight: Font.Medium
            wrapMode: Text.Wrap
        }

        AppText {
            Layout.fillWidth: true
            visible: text !== ""
            text: root.detail
            size: 13
            color: Theme.muted
            wrapMode: Text.Wrap
        }
    }

    RowLayout {
        id: control

        Layout.fillWidth: false
        spacing: 8
    }
}
