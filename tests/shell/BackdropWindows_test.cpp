#include "app/shell/BackdropWindows.h"

#include "app/platform/simulated/SimulatedDesktop.h"
#include "core/store/EventLog.h"
#include "tests/shell/CoverWorld.h"
#include "tests/support/MemoryFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Appearing = BackdropCover::Appearing;

constexpr Rectangle onTheLeft{0, 0, 1920, 1200};
constexpr Rectangle onTheRight{1920, 0, 1280, 800};

class BackdropWindowsTest : public ::testing::Test {
protected:
    BackdropWindowsTest() { screens.present = {onTheLeft, onTheRight}; }

    void show(Appearing appearing) {
        backdrop.isVisible = true;
        backdrop.show(appearing);
    }
    std::vector<std::string> takeSteps() { return std::exchange(covers.steps, {}); }
    std::string log() { return files.contents[std::filesystem::path{"/data"} / EventLog::fileName]; }

    MemoryFiles files;
    SimulatedDesktop desktop{Date{0}, files};
    VirtualTime& time = desktop.time;
    Appearance appearance;
    AppData data{JSONStore{"/data", files}, AppData::Seams{time, time, desktop.random, desktop.relay, appearance}};
    FakeScreens screens;
    FakeCovers covers{time};
    BackdropWindows backdrop{{screens, covers, covers, data}};
};

TEST_F(BackdropWindowsTest, itFadesInWithinThreeFifthsOfASecond) {
    show(Appearing::animated);
    EXPECT_THAT(takeSteps(), ElementsAre("1 opacity 0", "1 front", "2 opacity 0", "2 front", "1 fade in", "2 fade in"));
    time.advance(0.59);
    EXPECT_EQ(covers.windows[0]->opacity, 0);
    time.advance(0.02);
    EXPECT_EQ(covers.windows[0]->opacity, 1);
}

TEST_F(BackdropWindowsTest, atOnceItIsThereWithoutAFade) {
    show(Appearing::atOnce);
    EXPECT_THAT(takeSteps(), ElementsAre("1 front", "2 front"));
}

TEST_F(BackdropWindowsTest, withReducedMotionItAppearsAndVanishesWithNoFade) {
    covers.reduces.set(true);
    show(Appearing::animated);
    EXPECT_THAT(takeSteps(), ElementsAre("1 front", "2 front"));
    EXPECT_EQ(covers.windows[0]->opacity, 1);
    backdrop.hide();
    EXPECT_THAT(takeSteps(), ElementsAre("1 out", "2 out"));
    EXPECT_FALSE(covers.windows[0]->isAlive);
}

TEST_F(BackdropWindowsTest, itNeverTakesTheKeyboardNorActivates) {
    show(Appearing::animated);
    time.advance(2);
    backdrop.hide();
    time.advance(2);
    EXPECT_FALSE(covers.isProgramActive);
    for (const auto& step : covers.steps)
        EXPECT_TRUE(step != "activate" && !step.ends_with("key")) << step;
}

TEST_F(BackdropWindowsTest, itFadesOutInTwoFifthsOfASecondAndCostsNothingThen) {
    show(Appearing::atOnce);
    takeSteps();
    backdrop.hide();
    EXPECT_THAT(takeSteps(), ElementsAre("1 fade out", "2 fade out"));
    time.advance(0.39);
    EXPECT_THAT(covers.onScreen(), SizeIs(2));
    time.advance(0.02);
    EXPECT_THAT(covers.onScreen(), IsEmpty());
    EXPECT_FALSE(covers.windows[0]->isAlive);
}

TEST_F(BackdropWindowsTest, theLogTellsThatItCoversTheScreens) {
    show(Appearing::animated);
    EXPECT_THAT(log(), EndsWith(" backdrop shown windows=2 coversScreens=true\n"));
}

TEST_F(BackdropWindowsTest, theLogTellsWhereAWindowLiesBesideItsScreen) {
    covers.shiftsWindows = true;
    show(Appearing::animated);
    EXPECT_THAT(log(), EndsWith(" backdrop shown windows=2 coversScreens=false\n"));
}

TEST_F(BackdropWindowsTest, withoutScreensNoneDiffers) {
    screens.present = {};
    show(Appearing::animated);
    EXPECT_THAT(log(), EndsWith(" backdrop shown windows=0 coversScreens=true\n"));
}

TEST_F(BackdropWindowsTest, aChangeOfTheScreensBringsItAnewAtOnce) {
    show(Appearing::animated);
    time.advance(2);
    takeSteps();
    screens.change({onTheRight});
    EXPECT_THAT(takeSteps(), ElementsAre("1 out", "2 out", "3 front"));
    ASSERT_THAT(covers.onScreen(), SizeIs(1));
    EXPECT_EQ(covers.onScreen()[0]->frame, onTheRight);
    EXPECT_EQ(covers.onScreen()[0]->opacity, 1);
}

TEST_F(BackdropWindowsTest, aNotificationWithUnchangedFramesChangesNothing) {
    show(Appearing::atOnce);
    takeSteps();
    screens.notify();
    EXPECT_THAT(takeSteps(), IsEmpty());
}

TEST_F(BackdropWindowsTest, aChangeOfTheScreensWhileItIsNotWantedShowsNothing) {
    show(Appearing::atOnce);
    backdrop.isVisible = false;
    backdrop.hide();
    time.advance(1);
    takeSteps();
    screens.change({onTheLeft});
    EXPECT_THAT(takeSteps(), IsEmpty());
}

TEST_F(BackdropWindowsTest, aFadeOfTheLastSetDoesNotOrderOutANewOne) {
    show(Appearing::atOnce);
    backdrop.hide();
    time.advance(0.2);
    show(Appearing::animated);
    time.advance(5);
    EXPECT_THAT(covers.onScreen(), ElementsAre(covers.windows[2], covers.windows[3]));
}

TEST_F(BackdropWindowsTest, theScaleFollowsTheHeightOfEachScreen) {
    screens.present = {{0, 0, 1280, 800}, {0, 0, 1920, 1200}, {0, 0, 3840, 2160}};
    show(Appearing::atOnce);
    EXPECT_EQ(covers.windows[0]->content.unit, 1.0);
    EXPECT_EQ(covers.windows[1]->content.unit, 1.2);
    EXPECT_EQ(covers.windows[2]->content.unit, 1.5);
}

} // namespace
} // namespace velmorin
