import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    AppText {
        id: words

        readonly property color bar: Theme.series(2)

        width: 300
        text: "<b>plain</b>"
    }

    ControlCase {
        name: "Theme"

        function test_theColoursFollowTheTheme() {
            compare(Theme.isDark, true);
            compare(words.color, Qt.color("#fcf1e6"));
            Stage.setTheme("dawn");
            compare(Theme.isDark, false);
            compare(words.color, Qt.color("#2b1530"));
            Stage.setTheme("aurora");
            compare(words.color, Qt.color("#eef7f4"));
        }

        function test_aColourMayLetThrough() {
            fuzzyCompare(Theme.raised.a, 0.08, 0.001);
            fuzzyCompare(Theme.line.a, 0.16, 0.001);
            Stage.setTheme("dawn");
            fuzzyCompare(Theme.raised.a, 0.58, 0.001);
        }

        function test_theColoursOfTheCharts() {
            compare(Theme.series(0), Qt.color("#1fa08d"));
            compare(Theme.series(4), Qt.color("#6f9e2b"));
        }

        function test_slotFiveAndBeyondAndANameWithoutASlotAreMuted() {
            for (const slot of [5, 6, 100, -1])
                compare(Theme.series(slot), Theme.muted);
        }

        function test_aBindingOnAColourOfTheChartsFollowsTheTheme() {
            compare(words.bar, Qt.color("#5a8ae0"));
            Stage.setTheme("dawn");
            compare(words.bar, Qt.color("#2f5fb3"));
        }

        function test_theStillnessFollowsTheWish() {
            compare(Theme.reducesMotion, true);
            Stage.setReducesMotion(false);
            compare(Theme.reducesMotion, false);
        }

        function test_eachWeightIsAFileOfItsOwn() {
            for (const weight of [Font.Normal, Font.Medium, Font.DemiBold, Font.Bold])
                verify(Stage.hasOwnFace(weight), weight);
        }

        function test_textIsPlainAndInOurFace() {
            compare(words.textFormat, Text.PlainText);
            compare(words.font.family, "Vazirmatn");
            compare(words.font.pixelSize, 15);
        }

        function test_textIsAlignedWhereReadingBegins() {
            compare(words.effectiveHorizontalAlignment, Text.AlignRight);
            Stage.setLanguage("de");
            compare(words.effectiveHorizontalAlignment, Text.AlignLeft);
        }
    }
}
