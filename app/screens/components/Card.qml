import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// A raised surface with a column on it, under a title if it has one.
CardSurface {
    id: root

    default property alias content: column.data
    property string title
    property real spacing: 14

    Layout.fillWidth: true
    implicitWidth: column.implicitWidth + 44
    implicitHeight: column.implicitHeight + 44

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 22
        spacing: root.spacing

        AppText {
            Layout.fillWidth: true
            visible: text !== ""
            text: root.title
            weight: Font.DemiBold
            size: 15
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }
}
