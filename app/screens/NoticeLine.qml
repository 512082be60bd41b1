import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// Something that the user has to know.
Item {
    id: root

    required property string text
    required property real unit

    implicitHeight: row.implicitHeight
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
    Accessible.ignored: !text

    RowLayout {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, parent.width)
        spacing: 8 * root.unit

        Symbol {
            name: "warning"
            size: 18 * root.unit
            color: Theme.notice
        }

        AppText {
            Layout.fillWidth: true
            isSaid: true
            text: root.text
            Accessible.role: Accessible.AlertMessage
            weight: Font.Medium
            size: 16 * root.unit
            color: Theme.notice
            wrapMode: Text.Wrap
        }
    }
}
