import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// A field for one text, which wraps and grows with it. Return never breaks a line: it submits where that is handled.
FocusScope {
    id: root

    property alias text: edit.text
    property string placeholder
    /// The height of the type in pixels.
    property real size: 16
    /// Whether what is typed is written from left to right whatever the language, such as an address.
    property bool isLeftToRight: false
    property bool focusOnAppear: false
    property bool handlesSubmit: false
    property bool handlesCancel: false
    property alias color: edit.color
    property alias weight: edit.weight
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
    Component.onCompleted: appear()
    onVisibleChanged: appear()

    TextEdit {
        id: edit

        property int weight: Font.Normal

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
        selectionColor: Theme.accent
        selectedTextColor: Theme.onAccent
        font.family: Theme.family
        font.weight: weight
        font.pixelSize: Math.max(1, Math.round(root.size))
        LayoutMirroring.enabled: false
        horizontalAlignment: root.runsLeftToRight ? TextEdit.AlignLeft : TextEdit.AlignRight
        inputMethodHints: root.isLeftToRight ? Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText : Qt.ImhNone

        Accessible.role: Accessible.EditableText
        Accessible.name: root.placeholder
        Accessible.multiLine: false

        onTextChanged: if (canUndo || canRedo) root.edited()

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
            }
        }

        cursorDelegate: Rectangle {
            width: 2
            color: Theme.ink
            visible: edit.cursorVisible
        }
    }

    AppText {
        id: hint

        anchors.fill: parent
        visible: edit.length === 0 && !edit.inputMethodComposing
        text: root.placeholder
        size: root.size
        color: Theme.nsMuted
        wrapMode: Text.Wrap
        LayoutMirroring.enabled: false
        horizontalAlignment: root.runsLeftToRight ? Text.AlignLeft : Text.AlignRight
        Accessible.ignored: true
    }
}
