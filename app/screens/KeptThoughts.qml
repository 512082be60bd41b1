pragma ComponentBehavior: Bound

import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// Thoughts that were parked for this rest; nothing without any.
CardSurface {
    id: root

    required property real unit
    required property RestModel rest

    visible: rest.thoughts.length > 0
    cornerRadius: 18 * unit
    implicitHeight: column.implicitHeight + 36 * unit

    Column {
        id: column

        anchors.verticalCenter: parent.verticalCenter
        x: 24 * root.unit
        width: parent.width - 48 * root.unit
        spacing: 8 * root.unit

        FormHeading {
            width: parent.width
            title: Texts.keptThoughts
            size: 14 * root.unit
        }

        Repeater {
            model: root.rest.thoughts

            AppText {
                required property string modelData

                objectName: "thought"
                width: column.width
                text: modelData
                size: 16 * root.unit
                wrapMode: Text.Wrap
                maximumLineCount: 3
                elide: Text.ElideRight
            }
        }
    }
}
