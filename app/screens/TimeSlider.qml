import QtQuick
import QtQuick.Layouts
import Velmorin.Shell
import Velmorin.Controls

/// One length of a session, and the slider that changes it.
ColumnLayout {
    id: root

    required property TimeRow row

    spacing: 2

    RowLayout {
        Layout.fillWidth: true
        spacing: 12

        AppText {
            isSaid: true
            Layout.fillWidth: true
            text: root.row.title
            elide: Text.ElideRight
        }

        AppText {
            text: root.row.valueText
            weight: Font.DemiBold
        }
    }

    AppSlider {
        Layout.fillWidth: true
        from: root.row.from
        to: root.row.to
        stepSize: root.row.stepSize
        value: root.row.value
        accessibleName: root.row.title
        onMoved: value => root.row.move(value)
    }
}
