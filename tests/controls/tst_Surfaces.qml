import QtQuick
import QtQuick.Layouts
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    ColumnLayout {
        width: 500
        spacing: 10

        CardSurface {
            id: surface

            Rectangle {
                anchors.fill: parent
                anchors.margins: 12
                implicitWidth: 100
                implicitHeight: 40
            }
        }
        Card {
            id: card

            title: Texts.goalHeading

            Rectangle { id: inCard; implicitWidth: 50; implicitHeight: 30 }
        }
        FieldBox {
            id: box

            minHeight: 54
            Layout.fillWidth: true

            AppTextField { id: field; Layout.fillWidth: true }
        }
        SettingRow {
            id: row

            icon: "leaf"
            title: Texts.showBackdrop
            detail: Texts.phoneOneWayNote

            AppToggle { id: toggle; label: Texts.showBackdrop; showsLabel: false }
        }
        FormHeading { id: heading; title: Texts.modeHeading }
        RowLayout {
            IconBadge { id: badge; icon: "phone"; size: 50 }
            Symbol { id: symbol; name: "leaf"; size: 24 }
            AppMark { id: mark; size: 64 }
        }
    }

    ControlCase {
        name: "Surfaces"

        function init() {
            Stage.reset();
            waitForRendering(row);
        }

        function test_aSurfaceIsRaisedAndHasALine() {
            compare(surface.color, Theme.raised);
            compare(surface.border.width, 1);
            compare(surface.border.color, Theme.line);
            compare(surface.radius, surface.cornerRadius);
        }

        function test_aSurfaceIsAsLargeAsWhatIsOnIt() {
            compare(surface.implicitWidth, 124);
            compare(surface.implicitHeight, 64);
        }

        function test_aCardHasRoomAroundItsContent() {
            compare(card.radius, 18);
            compare(card.width, 500);
            compare(left(card) + 500 - 22, left(inCard) + inCard.width);
            compare(card.children[0].children[0].text, Texts.goalHeading);
            compare(card.children[0].children[0].font.weight, Font.DemiBold);
            compare(card.children[0].children[0].font.pixelSize, 15);
            compare(Stage.heard(card.children[0].children[0]).role, Accessible.Heading);
        }

        function test_aCardWithoutATitleBeginsWithItsContent() {
            card.title = "";
            waitForRendering(card);
            compare(inCard.mapToItem(card, 0, 0).y, 22);
            card.title = Qt.binding(() => Texts.goalHeading);
        }

        function test_aBoxHasTheHeightItIsTold() {
            compare(box.height, 54);
            compare(box.radius, 14);
            compare(field.width, 500 - 36);
        }

        function test_aBoxGrowsWithItsScale() {
            box.unit = 2;
            compare(box.radius, 28);
            waitForRendering(box);
            compare(field.width, 500 - 72);
            box.unit = 1;
        }

        function test_aBoxGrowsWithItsText() {
            field.text = "word ".repeat(100);
            waitForRendering(box);
            verify(box.height > 100);
            verify(box.height >= field.implicitHeight);
            field.text = "";
        }

        function test_aRowReadsFromTheIconToTheControl() {
            const icon = row.children[0];
            for (const language of ["fa", "en"]) {
                Stage.setLanguage(language);
                waitForRendering(row);
                compare(left(icon) < left(toggle), language === "en");
            }
            Stage.setLanguage("fa");
            waitForRendering(row);
            compare(left(toggle), left(row));
        }

        function test_aLongDetailWraps() {
            row.detail = "word ".repeat(60);
            waitForRendering(row);
            const detail = row.children[1].children[1];
            verify(detail.lineCount > 1);
            verify(row.height >= detail.contentHeight);
            row.detail = Qt.binding(() => Texts.phoneOneWayNote);
        }

        function test_aHeading() {
            compare(heading.font.weight, Font.DemiBold);
            compare(heading.color, Theme.muted);
            compare(Stage.heard(heading).role, Accessible.Heading);
            compare(Stage.heard(heading).name, Texts.modeHeading);
        }

        function test_aBadgeHoldsItsIcon() {
            compare(badge.color, Theme.accentSoft);
            compare(badge.children[0].name, "phone");
            compare(badge.children[0].width, 23);
        }

        function test_everySymbolIsKnown() {
            for (const name of ["pencil", "leaf", "warning", "close", "plus", "play", "profiles", "thoughts", "stats",
                                "settings", "phone", "search", "check", "scope"]) {
                symbol.name = name;
                verify(symbol.isKnown, name);
            }
            symbol.name = "nothing";
            verify(!symbol.isKnown);
            symbol.name = "leaf";
        }

        function test_aSymbolIsDrawnInItsColour() {
            symbol.name = "play";
            symbol.color = "#ff0000";
            verify(Qt.colorEqual(grabImage(symbol).pixel(12, 12), "#ff0000"));
            symbol.color = "#00ff00";
            verify(Qt.colorEqual(grabImage(symbol).pixel(12, 12), "#00ff00"));
        }

        function test_theMarkHasRoundCorners() {
            const image = grabImage(mark);
            compare(image.alpha(0, 0), 0);
            compare(image.alpha(32, 2), 255);
        }

        function test_withoutItsPictureTheMarkIsASymbol() {
            const made = createTemporaryQmlObject(
                "import Velmorin.Controls; AppMark { size: 40; source: 'nowhere.png' }", mark.parent);
            verify(!made.children[0].visible);
            verify(made.children[1].visible);
            compare(made.children[1].name, "scope");
        }
    }
}
