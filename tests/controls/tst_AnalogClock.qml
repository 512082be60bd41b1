import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    Rectangle {
        width: 210
        height: 210
        color: "black"

        AnalogClock {
            id: clock

            size: 210
            // 2026-03-01 03:00:00 UTC
            date: 794026800
        }
    }

    ControlCase {
        name: "AnalogClock"

        function picture() {
            return grabImage(clock.parent);
        }

        /// Whether the rim, halfway round at the right, has the accent on it.
        function hasArc(): bool {
            const image = picture();
            const x = Math.round(105 + 105 * 0.95 * Math.cos(-Math.PI / 4));
            const y = Math.round(105 + 105 * 0.95 * Math.sin(-Math.PI / 4));
            return Qt.colorEqual(image.pixel(x, y), Theme.accent);
        }

        function test_itIsAsLargeAsItIsTold() {
            compare(clock.implicitWidth, 210);
            compare(clock.implicitHeight, 210);
        }

        function test_aPlainClockHasNoArc() {
            clock.remainingFraction = -1;
            verify(!hasArc());
        }

        function test_aRemainderOfNothingHasNoArc() {
            clock.remainingFraction = 0;
            verify(!hasArc());
        }

        function test_theArcIsWhatRemains() {
            clock.remainingFraction = 0.5;
            verify(hasArc());
            clock.remainingFraction = 0.05;
            verify(!hasArc());
            clock.remainingFraction = -1;
        }

        function test_itIsNotMirrored() {
            clock.remainingFraction = 0.5;
            verify(hasArc());
            Stage.setLanguage("en");
            verify(hasArc());
            clock.remainingFraction = -1;
        }

        function test_theHandsShowTheTime() {
            Stage.setTheme("dusk");
            const image = picture();
            verify(Qt.colorEqual(image.pixel(105 + 40, 105), Theme.ink), "the hour hand points at three");
            verify(Qt.colorEqual(image.pixel(105, 105 - 60), Theme.ink), "the minute hand points at twelve");
        }

        function test_theColoursFollowTheTheme() {
            Stage.setTheme("aurora");
            verify(Qt.colorEqual(picture().pixel(105 + 40, 105), Theme.ink));
        }

        function test_theNumeralsFollowTheLanguage() {
            const persian = picture();
            Stage.setLanguage("en");
            verify(!picture().equals(persian));
        }

        function test_whatAScreenReaderSays() {
            Stage.setLanguage("en");
            compare(Stage.heard(clock).role, Accessible.Graphic);
            compare(Stage.heard(clock).name, "03:00");
            Stage.setLanguage("fa");
            compare(Stage.heard(clock).name, "۰۳:۰۰");
            compare(clock.children.length, 0);
        }
    }
}
