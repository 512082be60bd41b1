pragma ComponentBehavior: Bound

import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// A field for one text, which wraps and grows with it. Return never breaks a line: it submits where that is handled. What
/// is pasted becomes one line too.
FocusScope {
    id: root

    property alias text: edit.text
    property string placeholder
    /// What a screen reader calls it.
    property string accessibleName: placeholder
    /// The height of the type in pixels.
    property real size: 16
    property alias weight: edit.weight
    /// Whether what is typed is written from left to right whatever the language, such as an address.
    property bool isLeftToRight: false
    property bool focusOnAppear: false
    property bool handlesSubmit: false
    property bool handlesCancel: false
    readonly property bool runsLeftToRight: isLeftToRight || !Texts.isRightToLeft

    signal submitted
    signal cancelled
    /// The user has changed the text. Not for a text that was set.
    signal edited

    function selectAll() {
        edit.selectAll();
    }

    function appear() {
        if (focusOnAppear && visible)
            Qt.callLater(edit.forceActiveFocus);
    }

    implicitWidth: 240
    implicitHeight: Math.min(10000, Math.max(edit.implicitHeight, hint.visible ? hint.implicitHeight : 0))
    Component.onCompleted: {
        direction.apply();
        appear();
    }
    onVisibleChanged: appear()

    AppText {
        id: hint

        anchors.fill: parent
        visible: edit.length === 0 && !edit.inputMethodComposing
        text: root.placeholder
        size: root.size
        color: Theme.nsMuted
        opacity: root.enabled ? 1 : 0.5
        wrapMode: Text.Wrap
        LayoutMirroring.enabled: false
        horizontalAlignment: root.runsLeftToRight ? Text.AlignLeft : Text.AlignRight
        Accessible.ignored: true
    }

    TextEdit {
        id: edit

        property int weight: Font.Normal

        /// Puts a text in place of what is selected.
        function replaceSelection(inserted: string) {
            remove(selectionStart, selectionEnd);
            insert(cursorPosition, inserted);
        }

        function leave(forward: bool) {
            const next = nextItemInFocusChain(forward);
            if (next)
                next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
        }

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        clip: contentHeight > height + 1
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        selectByMouse: true
        color: Theme.nsInk
        opacity: root.enabled ? 1 : 0.5
        selectionColor: Theme.accent
        selectedTextColor: Theme.onAccent
        font.family: Theme.family
        font.weight: weight
        font.pixelSize: Math.max(1, Math.round(root.size))
        LayoutMirroring.enabled: false
        horizontalAlignment: root.runsLeftToRight ? TextEdit.AlignLeft : TextEdit.AlignRight

        Accessible.role: Accessible.EditableText
        Accessible.name: root.accessibleName

        onEffectiveHorizontalAlignmentChanged: direction.apply()
        onTextChanged: {
            direction.apply();
            // A text that is set cannot be undone.
            if (canUndo || canRedo)
                root.edited();
        }

        Keys.onPressed: event => {
            if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
                event.accepted = true;
                if (root.handlesSubmit && !event.isAutoRepeat)
                    root.submitted();
            } else if (event.key === Qt.Key_Escape && root.handlesCancel) {
                event.accepted = true;
                if (!event.isAutoRepeat)
                    root.cancelled();
            } else if (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab) {
                event.accepted = true;
                leave(event.key === Qt.Key_Tab);
            } else if (event.matches(StandardKey.Paste)) {
                event.accepted = true;
                replaceSelection(PlainClipboard.copied());
            }
        }

        cursorDelegate: Rectangle {
            width: 2
            color: Theme.ink
            visible: edit.cursorVisible
        }

        // The middle button pastes what is selected elsewhere.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.MiddleButton
            cursorShape: Qt.IBeamCursor
            onClicked: event => {
                edit.forceActiveFocus(Qt.MouseFocusReason);
                edit.cursorPosition = edit.positionAt(event.x, event.y);
                edit.replaceSelection(PlainClipboard.selected());
            }
        }

        WritingDirection {
            id: direction

            document: edit.textDocument
            isLeftToRight: root.runsLeftToRight
        }
    }
}
