import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    id: bench

    Column {
        width: 300
        spacing: 8

        SoftButton { id: before; text: "before" }
        AppTextField {
            id: field

            placeholder: Texts.goalPlaceholder
            size: 16
        }
        SoftButton { id: behind; text: "behind" }
    }

    Component {
        id: eager

        AppTextField { focusOnAppear: true }
    }

    SignalSpy { id: submits; target: field; signalName: "submitted" }
    SignalSpy { id: cancels; target: field; signalName: "cancelled" }
    SignalSpy { id: edits; target: field; signalName: "edited" }

    ControlCase {
        name: "AppTextField"

        readonly property Item hint: field.children[0]
        readonly property Item edit: field.children[1]

        function init() {
            Stage.reset();
            field.text = "";
            field.width = 300;
            field.isLeftToRight = false;
            field.handlesSubmit = false;
            field.handlesCancel = false;
            field.enabled = true;
            field.forceActiveFocus();
            for (const spy of [submits, cancels, edits])
                spy.clear();
        }

        function type(text: string) {
            for (const letter of text)
                keyClick(letter);
        }

        function test_whatIsTypedIsThere() {
            type("hello");
            compare(field.text, "hello");
            compare(edits.count, 5);
        }

        function test_returnWithoutAHandlerInsertsNothing() {
            type("ab");
            edits.clear();
            keyClick(Qt.Key_Return);
            keyClick(Qt.Key_Enter);
            keyClick(Qt.Key_Return, Qt.ShiftModifier);
            compare(field.text, "ab");
            compare(submits.count, 0);
            compare(edits.count, 0);
            verify(edit.activeFocus);
        }

        function test_returnSubmits() {
            field.handlesSubmit = true;
            type("ab");
            keyClick(Qt.Key_Return);
            compare(submits.count, 1);
            keyClick(Qt.Key_Enter);
            compare(submits.count, 2);
            compare(field.text, "ab");
        }

        function test_aHeldReturnSubmitsOnce() {
            field.handlesSubmit = true;
            Stage.holdKey(field, Qt.Key_Return, 5);
            compare(submits.count, 1);
        }

        function test_returnReachesNobodyElse() {
            let heard = 0;
            bench.Keys.pressed.connect(() => ++heard);
            keyClick(Qt.Key_Return);
            compare(heard, 0);
        }

        function test_escapeCancels() {
            field.handlesCancel = true;
            keyClick(Qt.Key_Escape);
            compare(cancels.count, 1);
        }

        function test_escapeWithoutAHandlerIsForOthers() {
            let heard = 0;
            bench.Keys.escapePressed.connect(() => ++heard);
            keyClick(Qt.Key_Escape);
            compare(cancels.count, 0);
            compare(heard, 1);
        }

        function test_theTabKeyLeaves() {
            keyClick(Qt.Key_Tab);
            verify(behind.visualFocus);
            compare(field.text, "");
            keyClick(Qt.Key_Backtab);
            verify(edit.activeFocus);
            keyClick(Qt.Key_Backtab);
            verify(before.visualFocus);
        }

        function test_thePlaceholderIsThereWhileNothingElseIs() {
            verify(hint.visible);
            compare(hint.text, Texts.goalPlaceholder);
            compare(hint.color, Theme.muted);
            type("a");
            verify(!hint.visible);
            keyClick(Qt.Key_Backspace);
            verify(hint.visible);
        }

        function test_theHeightFitsTheText() {
            const one = field.implicitHeight;
            field.text = "word ".repeat(40);
            verify(field.implicitHeight > 3 * one);
            compare(field.height, field.implicitHeight);
            field.width = 150;
            verify(field.implicitHeight > 6 * one);
            field.text = "";
            field.width = 300;
            compare(field.implicitHeight, one);
        }

        function test_theHeightHasAnEnd() {
            field.text = "word ".repeat(30000);
            compare(field.implicitHeight, 10000);
        }

        function test_aFieldOfNoGivenWidthIs240Wide() {
            compare(field.implicitWidth, 240);
        }

        function test_aTextThatIsSetIsNoEdit() {
            field.text = "set";
            compare(edits.count, 0);
            field.text = "";
            compare(edits.count, 0);
        }

        function test_undo() {
            type("ab");
            edits.clear();
            keyClick(Qt.Key_Z, Qt.ControlModifier);
            compare(field.text, "");
            compare(edits.count, 1);
            keyClick(Qt.Key_Z, Qt.ControlModifier | Qt.ShiftModifier);
            compare(field.text, "ab");
        }

        function test_whatIsPastedBecomesOneLine() {
            Stage.setClipboard("  one\r\n two\n\nthree \u2028four\n");
            keyClick(Qt.Key_V, Qt.ControlModifier);
            compare(field.text, "  one two three four");
            compare(edits.count > 0, true);
        }

        function test_pastingReplacesWhatIsSelected() {
            type("abc");
            field.selectAll();
            Stage.setClipboard("x\ny");
            keyClick(Qt.Key_Insert, Qt.ShiftModifier);
            compare(field.text, "x y");
        }

        function test_formattedTextIsPastedPlain() {
            Stage.setClipboard("<b>bold</b>");
            keyClick(Qt.Key_V, Qt.ControlModifier);
            compare(field.text, "<b>bold</b>");
        }

        function test_theMouseSelects() {
            Stage.setLanguage("en");
            field.text = "some words to select";
            mouseDoubleClickSequence(edit, 10, edit.height / 2);
            compare(edit.selectedText, "some");
        }

        function test_persianIsWrittenFromTheRight() {
            field.text = "Xcode را ببند";
            verify(edit.positionToRectangle(0).x > edit.positionToRectangle(field.text.length).x,
                   "the last word stands left of the first, though that is Latin");
            verify(edit.positionToRectangle(0).x > field.width / 2);
            compare(hint.effectiveHorizontalAlignment, Text.AlignRight);
        }

        function test_anEmptyPersianFieldHasItsCaretAtTheRight() {
            verify(edit.cursorRectangle.x > field.width - 5);
        }

        function test_english_isWrittenFromTheLeft() {
            Stage.setLanguage("en");
            field.text = "hello";
            verify(edit.positionToRectangle(0).x < 5);
            verify(edit.positionToRectangle(5).x > 20);
            compare(hint.effectiveHorizontalAlignment, Text.AlignLeft);
        }

        function test_anAddressIsWrittenFromTheLeftInPersianToo() {
            field.isLeftToRight = true;
            field.text = "example.com";
            verify(edit.positionToRectangle(0).x < 5);
            compare(hint.effectiveHorizontalAlignment, Text.AlignLeft);
        }

        function test_theDirectionFollowsTheLanguageAtOnce() {
            field.text = "abc";
            verify(edit.positionToRectangle(0).x > 100);
            Stage.setLanguage("de");
            verify(edit.positionToRectangle(0).x < 5);
        }

        function test_itTakesTheFocusWhenItAppears() {
            const made = createTemporaryObject(eager, bench);
            tryVerify(() => made.activeFocus);
        }

        function test_itTakesTheFocusWhenItAppearsAgain() {
            const made = createTemporaryObject(eager, bench, { visible: false });
            verify(edit.activeFocus);
            made.visible = true;
            tryVerify(() => made.activeFocus);
        }

        function test_itsTypeAndColours() {
            compare(edit.font.family, Theme.family);
            compare(edit.font.weight, Font.Normal);
            compare(edit.font.pixelSize, 16);
            for (const theme of ["dawn", "dusk"]) {
                Stage.setTheme(theme);
                compare(edit.color, Theme.ink);
                compare(hint.color, Theme.muted);
            }
        }

        function test_whatAScreenReaderSays() {
            const heard = Stage.heard(edit);
            compare(heard.name, Texts.goalPlaceholder);
            compare(heard.role, Accessible.EditableText);
            compare(heard.readOnly, false);
        }

        function test_disabledItTakesNothing() {
            field.enabled = false;
            mouseClick(field);
            keyClick("a");
            compare(field.text, "");
        }
    }
}
