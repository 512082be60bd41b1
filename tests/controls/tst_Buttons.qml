import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    id: bench

    Column {
        spacing: 8

        PrimaryPillButton { id: primary; text: Texts.startSession }
        SoftButton { id: soft; text: Texts.save }
        QuietLink { id: quiet; text: Texts.endSession }
        ClearTextButton { id: clear; text: Texts.done }
        ClearTextButton {
            id: filled

            text: Texts.menuClose

            Item { implicitWidth: 70; implicitHeight: 30 }
        }
        ChipButton { id: chip; title: Texts.modeDeep }
    }

    SignalSpy { id: clicks; signalName: "clicked" }

    ControlCase {
        name: "Buttons"

        function test_sizes() {
            compare(primary.implicitHeight, 60);
            compare(primary.implicitWidth, 280);
            compare(soft.implicitHeight, 42);
            compare(soft.leftPadding, 16);
            compare(soft.rightPadding, 16);
        }

        function test_thePillGrowsWithItsScale() {
            primary.unit = 1.5;
            compare(primary.implicitHeight, 90);
            compare(primary.implicitWidth, 420);
            compare(primary.leftPadding, 48);
            primary.unit = 1;
        }

        function test_thePillGrowsWithALongText() {
            primary.text = "Weiterarbeiten und die Sitzung ganz bis zum Ende bringen";
            verify(primary.implicitWidth > 280);
            compare(primary.contentItem.truncated, false);
            primary.text = Qt.binding(() => Texts.startSession);
        }

        function test_theirType() {
            compare(primary.contentItem.font.weight, Font.Bold);
            compare(soft.contentItem.font.weight, Font.Medium);
            compare(soft.contentItem.font.pixelSize, 15);
            for (const button of [primary, soft, clear, chip])
                compare(button.contentItem.font.family, Theme.family);
        }

        function test_pressedLooks_data() {
            return [
                { tag: "primary", button: primary, opacity: 0.85 },
                { tag: "soft", button: soft, opacity: 0.7 },
                { tag: "clear", button: clear, opacity: 0.75 }
            ];
        }

        function test_pressedLooks(data) {
            compare(data.button.contentItem.opacity, 1);
            mousePress(data.button);
            compare(data.button.contentItem.opacity, data.opacity);
            mouseRelease(data.button);
            compare(data.button.contentItem.opacity, 1);
        }

        function test_aPressedPillIsALittleSmaller() {
            mousePress(primary);
            compare(primary.shownShrink, 0.985);
            mouseRelease(primary);
            compare(primary.shownShrink, 1);
        }

        function test_whereMotionIsWelcomeALookComesByAndBy() {
            Stage.setReducesMotion(false);
            mousePress(primary);
            verify(primary.shownShrink > 0.985);
            tryCompare(primary, "shownShrink", 0.985);
            tryCompare(primary, "shownOpacity", 0.85);
            mouseRelease(primary);
            tryCompare(primary, "shownOpacity", 1);
        }

        function test_aDisabledPillIsPaleAndStill() {
            clicks.target = primary;
            clicks.clear();
            primary.enabled = false;
            fuzzyCompare(primary.background.children[0].opacity, 0.28, 0.001);
            press(primary);
            compare(clicks.count, 0);
            primary.enabled = true;
        }

        function test_pressing_data() {
            return [
                { tag: "primary", button: primary },
                { tag: "soft", button: soft },
                { tag: "quiet", button: quiet },
                { tag: "clear", button: clear },
                { tag: "filled", button: filled },
                { tag: "chip", button: chip }
            ];
        }

        function test_pressing(data) {
            clicks.target = data.button;
            clicks.clear();
            press(data.button);
            compare(clicks.count, 1, "a click");
            data.button.forceActiveFocus();
            keyClick(Qt.Key_Space);
            compare(clicks.count, 2, "Space");
            keyClick(Qt.Key_Return);
            compare(clicks.count, 3, "Return");
            keyClick(Qt.Key_Enter);
            compare(clicks.count, 4, "Enter");
            verify(Stage.act(data.button, "Press"));
            compare(clicks.count, 5, "a screen reader");
        }

        function test_aHeldKeyPressesOnce_data() {
            return [
                { tag: "Space", key: Qt.Key_Space },
                { tag: "Return", key: Qt.Key_Return },
                { tag: "Enter", key: Qt.Key_Enter }
            ];
        }

        function test_aHeldKeyPressesOnce(data) {
            clicks.target = soft;
            clicks.clear();
            soft.forceActiveFocus();
            Stage.holdKey(soft, data.key, 5);
            compare(clicks.count, 1);
        }

        function test_otherKeysDoNothing() {
            clicks.target = soft;
            clicks.clear();
            soft.forceActiveFocus();
            keyClick(Qt.Key_A);
            keyClick(Qt.Key_Escape);
            compare(clicks.count, 0);
        }

        function test_aButtonThatIsDisabledIsNotPressedByAScreenReader() {
            clicks.target = soft;
            clicks.clear();
            soft.enabled = false;
            Stage.act(soft, "Press");
            compare(clicks.count, 0);
            soft.enabled = true;
        }

        function test_theRingIsForTheKeyboard() {
            const ring = soft.background.children[0];
            press(soft);
            verify(soft.activeFocus);
            verify(!ring.visible);
            quiet.forceActiveFocus();
            keyClick(Qt.Key_Backtab);
            verify(soft.activeFocus);
            verify(ring.visible);
        }

        function test_theTabKeyGoesThroughThemInOrder() {
            primary.forceActiveFocus();
            for (const next of [soft, quiet, clear, filled, chip]) {
                keyClick(Qt.Key_Tab);
                verify(next.activeFocus, next.text);
            }
        }

        function test_whatAScreenReaderSays_data() {
            return test_pressing_data();
        }

        function test_whatAScreenReaderSays(data) {
            const heard = Stage.heard(data.button);
            compare(heard.name, data.button.text);
            verify(heard.name !== "");
            compare(heard.role, Accessible.Button);
            compare(heard.focusable, true);
        }

        function test_aButtonIsAsLargeAsWhatIsPutThere() {
            compare(filled.implicitWidth, 70);
            compare(filled.implicitHeight, 30);
            verify(!filled.contentItem.visible);
        }

        function test_aSelectedChipIsFilled() {
            compare(chip.background.color, Qt.rgba(0, 0, 0, 0));
            compare(chip.background.border.width, 1);
            chip.isSelected = true;
            compare(chip.background.color, Theme.accent);
            compare(chip.background.border.width, 0);
            compare(chip.contentItem.color, Theme.onAccent);
            compare(Stage.heard(chip).checked, true);
            chip.isSelected = false;
            compare(Stage.heard(chip).checked, false);
        }

        function test_aChipIsACapsule() {
            compare(chip.background.radius, chip.height / 2);
        }

        function test_theTextsFollowTheLanguageAtOnce() {
            const before = soft.contentItem.text;
            Stage.setLanguage("de");
            verify(soft.contentItem.text !== before);
            compare(soft.contentItem.text, Texts.save);
        }

        function test_theColoursFollowTheThemeAtOnce() {
            for (const theme of ["dawn", "aurora", "dusk"]) {
                Stage.setTheme(theme);
                compare(primary.background.children[0].color, Theme.accent);
                compare(primary.contentItem.color, Theme.onAccent);
                compare(soft.background.color, Theme.accentSoft);
                compare(quiet.contentItem.children[1].color, Theme.muted);
            }
        }

        function test_anIconStandsBeforeTheWordsOfALink() {
            quiet.icon.name = "pencil";
            const icon = quiet.contentItem.children[0];
            const words = quiet.contentItem.children[1];
            verify(icon.visible);
            for (const language of ["fa", "de"]) {
                Stage.setLanguage(language);
                settle(quiet);
                compare(leftOf(icon) < leftOf(words), language === "de");
            }
            quiet.icon.name = "";
        }
    }
}
