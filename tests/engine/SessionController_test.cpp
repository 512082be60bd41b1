#include "tests/engine/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SessionControllerTest : public EngineTest {};

TEST_F(SessionControllerTest, aNewSessionStartsAtItsFirstSegmentWithoutASound) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    ASSERT_TRUE(*controller().status());
    EXPECT_EQ((*controller().status())->segmentIndex, 0);
    EXPECT_THAT(events("sound"), IsEmpty());
}

TEST_F(SessionControllerTest, aStartTakesItsStepsInOrder) {
    setup.tellsTicks = true;
    addEditorAndGame();
    launch();
    forgetEvents();
    controller().start(profile(SessionMode::pomodoro), "write");
    // Saved before the watchdog comes, the game hidden by the first tick and remembered, the front given back.
    EXPECT_THAT(eventNames(), ElementsAre("save", "watchdog", "sessionChange", "hide", "log", "save", "tick",
                                          "activate", "log", "sessionBegan"));
    EXPECT_THAT(log(), ElementsAre("hid org.example.game", "session started mode=pomodoro segments=8"));
}

} // namespace
} // namespace velmorin
