import QtQuick
import Velmorin.Controls

/// Names of which one is chosen, in a row that scrolls sideways when it is longer than its place.
Flickable {
    id: root

    required property list<string> names
    required property int selectedIndex
    /// The room for the rings around focused chips, which the row would cut off.
    readonly property real rim: 6
    readonly property Item focused: Window.activeFocusItem

    signal selected(int index)

    function reveal() {
        if (!focused || focused.parent !== row)
            return;
        const left = focused.x;
        if (left - 24 < contentX)
            contentX = Math.max(0, left - 24);
        else if (left + focused.width + 24 + 2 * rim > contentX + width)
            contentX = Math.min(contentWidth - width, left + focused.width + 24 + 2 * rim - width);
    }

    implicitWidth: contentWidth
    implicitHeight: row.implicitHeight + 2 * rim
    contentWidth: row.implicitWidth + 2 * rim
    contentHeight: height
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentWidth > width
    clip: interactive
    onFocusedChanged: Qt.callLater(reveal)

    Row {
        id: row

        // What is shorter than its place starts at the leading edge.
        x: LayoutMirroring.enabled ? Math.max(root.rim, root.width - implicitWidth - root.rim) : root.rim
        y: root.rim
        spacing: 8

        Repeater {
            model: root.names

            ChipButton {
                required property string modelData
                required property int index

                width: Math.min(implicitWidth, 260)
                title: modelData
                isSelected: index === root.selectedIndex
                onClicked: root.selected(index)
            }
        }
    }
}
