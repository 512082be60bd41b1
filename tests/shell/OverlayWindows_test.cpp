#include "app/shell/OverlayWindows.h"

#include "tests/shell/CoverWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr Rectangle left{0, 0, 1920, 1200};
constexpr Rectangle right{1920, 0, 1280, 800};
constexpr Rectangle third{3200, 0, 3840, 2160};

class OverlayWindowsTest : public ::testing::Test {
protected:
    OverlayWindowsTest() { screens.present = {left}; }

    /// The present steps, which are forgotten.
    std::vector<std::string> takeSteps() { return std::exchange(covers.steps, {}); }

    VirtualTime time{Date{0}};
    FakeScreens screens;
    FakeCovers covers{time};
    OverlayWindows overlay{{screens, covers, covers, covers, time}};
};

TEST_F(OverlayWindowsTest, showingGoesInOrder) {
    screens.present = {left, right, third};
    screens.mainScreen = 1;
    overlay.show();
    EXPECT_THAT(takeSteps(), ElementsAre("1 opacity 0", "1 front", "2 opacity 0", "3 opacity 0", "3 front", "activate",
                                         "locked", "2 key", "1 fade in", "2 fade in", "3 fade in"));
    EXPECT_TRUE(overlay.isShown());
}

TEST_F(OverlayWindowsTest, theWindowsAreOpaqueAfterNineTwentiethsOfASecond) {
    screens.present = {left, right};
    overlay.show();
    time.advance(0.44);
    EXPECT_EQ(covers.windows[0]->opacity, 0);
    time.advance(0.02);
    EXPECT_EQ(covers.windows[0]->opacity, 1);
    EXPECT_EQ(covers.windows[1]->opacity, 1);
}

TEST_F(OverlayWindowsTest, hidingLetsTheDesktopGoAtOnceAndTheWindowsAfterAQuarterOfASecond) {
    overlay.show();
    time.advance(1);
    takeSteps();
    overlay.hide();
    EXPECT_FALSE(overlay.isShown());
    EXPECT_EQ(covers.options, Presentation::Options::usual);
    EXPECT_THAT(takeSteps(), ElementsAre("usual", "1 fade out"));
    time.advance(0.24);
    EXPECT_THAT(covers.onScreen(), SizeIs(1));
    time.advance(0.02);
    EXPECT_THAT(takeSteps(), ElementsAre("1 out"));
    EXPECT_FALSE(covers.windows[0]->isAlive) << "a hidden window costs nothing";
}

TEST_F(OverlayWindowsTest, withReducedMotionWindowsAppearAndVanishWithNoFade) {
    covers.reduces.set(true);
    screens.present = {left, right};
    overlay.show();
    EXPECT_THAT(takeSteps(), ElementsAre("2 front", "activate", "locked", "1 key"));
    EXPECT_EQ(covers.windows[0]->opacity, 1);
    overlay.hide();
    EXPECT_THAT(takeSteps(), ElementsAre("usual", "1 out", "2 out"));
    EXPECT_THAT(covers.onScreen(), IsEmpty());
    EXPECT_FALSE(covers.windows[0]->isAlive);
}

TEST_F(OverlayWindowsTest, aScreenPluggedInWhileItShowsBringsAllWindowsAnewWithAFade) {
    overlay.show();
    time.advance(2);
    takeSteps();
    screens.mainScreen = 1;
    screens.change({left, right});
    EXPECT_THAT(takeSteps(), ElementsAre("usual", "1 fade out", "2 opacity 0", "2 front", "3 opacity 0", "activate",
                                         "locked", "3 key", "2 fade in", "3 fade in"));
    time.advance(1);
    EXPECT_THAT(covers.onScreen(), ElementsAre(covers.windows[1], covers.windows[2]));
    EXPECT_TRUE(covers.windows[2]->isKey) << "the primary screen's window holds the keyboard";
    EXPECT_TRUE(overlay.isShown());
}

TEST_F(OverlayWindowsTest, aScreenThatIsUnpluggedTakesItsWindowAlong) {
    screens.present = {left, right};
    overlay.show();
    screens.change({left});
    time.advance(1);
    ASSERT_THAT(covers.onScreen(), SizeIs(1));
    EXPECT_EQ(covers.onScreen()[0]->frame, left);
}

TEST_F(OverlayWindowsTest, aNotificationWithUnchangedFramesChangesNothing) {
    overlay.show();
    takeSteps();
    screens.notify();
    screens.mainScreen = std::nullopt;
    screens.notify();
    EXPECT_THAT(takeSteps(), IsEmpty());
}

TEST_F(OverlayWindowsTest, theFramesAreComparedInTheirOrder) {
    screens.present = {left, right};
    overlay.show();
    screens.change({right, left});
    EXPECT_THAT(covers.windows, SizeIs(4));
}

TEST_F(OverlayWindowsTest, aChangeOfScreensWhileItIsHiddenShowsNothing) {
    screens.change({left, right});
    EXPECT_THAT(takeSteps(), IsEmpty());
    overlay.show();
    overlay.hide();
    takeSteps();
    screens.change({right});
    EXPECT_THAT(takeSteps(), IsEmpty());
}

TEST_F(OverlayWindowsTest, aProgramThatTakesActivationLosesItAgain) {
    overlay.show();
    for (const double moment : {0.15, 0.4, 0.8}) {
        time.advanceUntil(moment - 0.001);
        covers.isProgramActive = false;
        takeSteps();
        time.advanceUntil(moment);
        EXPECT_THAT(takeSteps(), ElementsAre("activate", "1 key")) << "after " << moment << " s";
        EXPECT_TRUE(covers.isProgramActive);
    }
    covers.isProgramActive = false;
    takeSteps();
    time.advance(60);
    EXPECT_THAT(takeSteps(), IsEmpty()) << "there are three of these checks";
}

TEST_F(OverlayWindowsTest, aCheckThatFindsTheProgramActiveDoesNothing) {
    overlay.show();
    time.advance(0.1);
    takeSteps();
    time.advance(2);
    EXPECT_THAT(takeSteps(), IsEmpty());
}

TEST_F(OverlayWindowsTest, noCheckOfAHiddenOverlayActivates) {
    overlay.show();
    overlay.hide();
    covers.isProgramActive = false;
    takeSteps();
    time.advance(2);
    EXPECT_THAT(takeSteps(), ElementsAre("1 out"));
}

TEST_F(OverlayWindowsTest, aFadeOfTheLastSetDoesNotOrderOutANewOne) {
    overlay.show();
    time.advance(1);
    overlay.hide();
    time.advance(0.1);
    overlay.show();
    time.advance(5);
    EXPECT_THAT(covers.onScreen(), ElementsAre(covers.windows[1]));
    EXPECT_TRUE(overlay.isShown());
    EXPECT_EQ(covers.windows[1]->opacity, 1);
}

TEST_F(OverlayWindowsTest, aFadeInIsOvertakenByTheFadeOut) {
    overlay.show();
    time.advance(0.2);
    overlay.hide();
    time.advance(0.25);
    EXPECT_EQ(covers.windows[0]->opacity, 0);
    time.advance(1);
    EXPECT_EQ(covers.windows[0]->opacity, 0);
    EXPECT_THAT(covers.onScreen(), IsEmpty());
}

TEST_F(OverlayWindowsTest, theScaleFollowsTheHeightOfEachScreen) {
    screens.present = {{0, 0, 1280, 800}, {0, 0, 1920, 1200}, {0, 0, 3840, 2160}, {0, 0, 1000, 1000}};
    overlay.show();
    std::vector<double> units;
    for (const auto& window : covers.windows)
        units.push_back(window->content.unit);
    EXPECT_THAT(units, ElementsAre(1.0, 1.2, 1.5, 1.0));
}

TEST_F(OverlayWindowsTest, onTheOtherScreensItIsSecondaryAndTakesNoKeyboard) {
    screens.present = {left, right, third};
    screens.mainScreen = 2;
    overlay.show();
    for (const auto& window : covers.windows) {
        EXPECT_EQ(window->content.isPrimary, window->number == 3);
        EXPECT_EQ(window->isKey, window->number == 3);
    }
}

TEST_F(OverlayWindowsTest, theFirstScreenIsPrimaryWhereNoneIsTheMainOne) {
    screens.present = {left, right};
    screens.mainScreen = std::nullopt;
    overlay.show();
    EXPECT_TRUE(covers.windows[0]->content.isPrimary);
    EXPECT_FALSE(covers.windows[1]->content.isPrimary);
}

TEST_F(OverlayWindowsTest, withoutScreensThereIsNoWindowAndTheDesktopIsLockedAllTheSame) {
    screens.present = {};
    screens.mainScreen = std::nullopt;
    overlay.show();
    EXPECT_FALSE(overlay.isShown());
    EXPECT_EQ(covers.options, Presentation::Options::locked);
    time.advance(1);
    EXPECT_THAT(takeSteps(), ElementsAre("activate", "locked"));
}

TEST_F(OverlayWindowsTest, whatFadesGoesWithTheOverlay) {
    auto other = std::make_unique<OverlayWindows>(OverlayWindows::Seams{screens, covers, covers, covers, time});
    other->show();
    other->hide();
    other.reset();
    EXPECT_FALSE(covers.windows[0]->isAlive);
    time.advance(5);
    screens.change({right});
    EXPECT_THAT(covers.onScreen(), IsEmpty());
}

} // namespace
} // namespace velmorin
