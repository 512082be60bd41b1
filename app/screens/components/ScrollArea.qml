import QtQuick
import QtQuick.Templates as T
import Velmorin.Controls

/// A column that scrolls when it is taller than its place, with a thin bar to tell. What the keyboard leads to comes into
/// view.
Flickable {
    id: root

    /// The room around the focused control when it comes into view.
    property real margin: 24
    readonly property bool overflows: contentHeight > height + 0.5
    readonly property Item focused: Window.activeFocusItem

    function scrollBy(distance: real) {
        contentY = Math.min(Math.max(contentY + distance, 0), Math.max(contentHeight - height, 0));
    }

    /// Brings the focused control into view if it is one of ours. Not under the mouse, which would then miss it.
    function reveal() {
        let holder = focused;
        while (holder && holder !== contentItem)
            holder = holder.parent;
        if (!holder || (focused as T.Control)?.focusReason === Qt.MouseFocusReason)
            return;
        const top = focused.mapToItem(contentItem, 0, 0).y;
        const bottom = top + focused.height;
        if (top - margin < contentY)
            scrollBy(top - margin - contentY);
        else if (bottom + margin > contentY + height)
            scrollBy(Math.min(bottom + margin - contentY - height, top - margin - contentY));
    }

    /// At once, and again when what has just been made has found its place.
    function revealNowAndThen() {
        reveal();
        Qt.callLater(root.reveal); // qmllint disable
    }

    contentWidth: width
    contentHeight: contentItem.childrenRect.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.VerticalFlick
    pixelAligned: true
    interactive: overflows

    onFocusedChanged: revealNowAndThen()
    onHeightChanged: scrollBy(0)
    onContentHeightChanged: scrollBy(0)

    Keys.onPressed: event => {
        event.accepted = root.overflows;
        switch (event.key) {
        case Qt.Key_PageUp: scrollBy(-0.9 * height); break;
        case Qt.Key_PageDown: scrollBy(0.9 * height); break;
        case Qt.Key_Up: scrollBy(-40); break;
        case Qt.Key_Down: scrollBy(40); break;
        case Qt.Key_Home: scrollBy(-contentHeight); break;
        case Qt.Key_End: scrollBy(contentHeight); break;
        default: event.accepted = false;
        }
    }

    Rectangle {
        parent: root
        anchors.right: parent.right
        anchors.rightMargin: 3
        y: root.visibleArea.yPosition * root.height
        width: 5
        height: Math.max(root.visibleArea.heightRatio * root.height, 24)
        radius: 2.5
        visible: root.overflows
        color: Theme.muted
        opacity: 0.5
    }
}
