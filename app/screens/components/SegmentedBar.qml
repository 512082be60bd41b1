pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// A choice between a few things that stand side by side. It says what it was asked for by `selected`; what it shows is
/// `selection`. One stop of the Tab key, with the arrow keys within.
Rectangle {
    id: root

    property list<string> options
    property int selection: -1
    /// What a screen reader calls the whole of it.
    property string accessibleName

    signal selected(int index)

    /// Asks for the option that is so many places after the present one, and takes the focus to what is then chosen.
    function move(places: int) {
        const index = Math.min(Math.max(selection + places, 0), options.length - 1);
        if (index !== selection)
            selected(index);
        const chosen = buttons.itemAt(selection);
        if (chosen)
            chosen.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitWidth: row.implicitWidth + 8
    implicitHeight: row.implicitHeight + 8
    radius: 14
    color: Theme.raised
    border.width: 1
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: accessibleName

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: 4
        spacing: 4

        Repeater {
            id: buttons

            model: root.options

            SegmentButton {
                required property string modelData
                required property int index

                Layout.fillWidth: true
                Layout.fillHeight: true
                text: modelData
                isSelected: index === root.selection
                // Where nothing is chosen yet, the Tab key leads to the first.
                isStop: index === root.selection || index === 0 && root.selection < 0
                onClicked: if (!isSelected) root.selected(index)
                onMoved: places => root.move(places)
            }
        }
    }
}
