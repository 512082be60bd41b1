// Every line that the engine writes to its log, word for word.

#include "core/store/EventLog.h"
#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;

class EngineLogTest : public EngineTest {
protected:
    EngineLogTest() { addEditorAndGame(); }
};

TEST_F(EngineLogTest, aSessionWithEverythingInItIsTold) {
    addApplication(chrome, "com.google.Chrome", "Chrome");
    addApplication(14, "com.apple.Safari", "Safari");
    desktop().browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Tabs{{"1", "https://www.bad.example/"}}});
    desktop().browsers.behave(BrowserKind::safari, {SimulatedBrowsers::Denied{}});
    startSession(profile(SessionMode::pomodoro, {"com.google.Chrome", "com.apple.Safari"}, {"good.example"}));
    push();
    controller().returnToWork();
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("too soon to go");
    controller().cancelEmergencyExit();
    advance(3);
    start("org.example.newcomer", QuitManners::never);
    advance(7);
    crash();
    relaunch();
    advance(60);
    controller().beginEmergencyExit();
    advance(60);
    controller().confirmEmergencyExit("enough for today");
    EXPECT_THAT(log(), ElementsAre("hid org.example.game", "session started mode=pomodoro segments=8",
                                   "blocked site in Chrome: bad.example", "automation denied for Safari",
                                   "hid com.apple.Safari", "hid org.example.game", "attempt 1 target=Game pause=5",
                                   "returned 1", "emergency exit opened", "exit refused", "emergency exit cancelled",
                                   "blocked launch org.example.newcomer", "attempt 2 target=Newcomer pause=10",
                                   "hid org.example.newcomer", "would not quit, kept hidden: org.example.newcomer",
                                   "segment 0 work", "session resumed", "automation denied for Safari",
                                   "emergency exit opened", "session ended outcome=aborted attempts=2 returns=1"));
}

TEST_F(EngineLogTest, anApplicationWithoutAnIdentifierIsUnknown) {
    ASSERT_TRUE(desktop().workspace.add({20, std::nullopt, "Nameless"}));
    startSession(profile(SessionMode::deep));
    EXPECT_EQ(log()[1], "hid unknown");
}

TEST_F(EngineLogTest, eachLineBeginsWithItsMoment) {
    startSession(profile(SessionMode::deep));
    controller().beginEmergencyExit();
    EXPECT_EQ(*file(EventLog::fileName), "2026-05-09T06:13:20Z hid org.example.game\n"
                                         "2026-05-09T06:13:20Z session started mode=deep segments=5\n"
                                         "2026-05-09T06:13:23Z emergency exit opened\n");
}

} // namespace
} // namespace velmorin
