// What a session does when its plan moves on: every row, from every kind of segment, under every screen.

#include "tests/engine/OverlayStates.h"
#include "tests/support/EngineTest.h"

#include <algorithm>
#include <tuple>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double secondsBefore = 10; // seconds until the plan moves on

/// What a change of segment brings.
struct Row {
    std::vector<std::optional<SegmentKind>> from; ///< absent for a resume
    SegmentKind to;
    bool sounds;
    bool suppresses;
    std::optional<OverlayState> overlay; ///< absent where it stays
    bool focuses;
};

const std::vector<Row>& rows() {
    using enum SegmentKind;
    static const std::vector<Row> all{
        {{std::nullopt}, shortBreak, false, false, Overlay::None{}, false},
        {{std::nullopt}, longBreak, false, false, Overlay::None{}, false},
        {{std::nullopt}, lockedBreak, false, false, Overlay::LockedBreak{}, false},
        {{std::nullopt}, work, false, false, std::nullopt, false},
        {{work, shortBreak, longBreak, lockedBreak}, shortBreak, true, false, Overlay::None{}, false},
        {{work, shortBreak, longBreak, lockedBreak}, longBreak, true, false, Overlay::None{}, false},
        {{work, shortBreak, longBreak, lockedBreak}, lockedBreak, true, false, Overlay::LockedBreak{}, false},
        {{work, lockedBreak}, work, true, true, Overlay::None{}, true},
        {{shortBreak, longBreak}, work, true, true, Overlay::BackToWork{}, false},
    };
    return all;
}

using Change = std::tuple<std::optional<SegmentKind>, SegmentKind, std::size_t>;

class SegmentChangeTest : public EngineTest, public ::testing::WithParamInterface<Change> {
protected:
    SegmentChangeTest() { addEditorAndGame(); }

    /// Comes to the segment under this screen.
    void change(std::optional<SegmentKind> from, SegmentKind to, std::size_t screen) {
        launch();
        if (!from) leaveSession({{to, 100}, {SegmentKind::work, 100}}, 0);
        if (from) {
            leaveSession({{*from, secondsBefore}, {to, 100}, {SegmentKind::work, 100}}, 0);
            controller().resumeIfNeeded();
            advance(secondsBefore - 0.5);
        }
        before = overlayState(screen, now());
        controller().setOverlay(before);
        forgetEvents();
        if (from) {
            advance(0.5);
        } else {
            controller().resumeIfNeeded();
        }
    }

    OverlayState before;
};

const Row& rowOf(std::optional<SegmentKind> from, SegmentKind to) {
    return *std::ranges::find_if(
        rows(), [&](const Row& row) { return row.to == to && std::ranges::find(row.from, from) != row.from.end(); });
}

TEST_P(SegmentChangeTest, bringsItsSoundItsSuppressionItsScreenAndItsFocus) {
    const auto [from, to, screen] = GetParam();
    const Row& row = rowOf(from, to);
    change(from, to, screen);
    const bool isExiting = shows<Overlay::EmergencyExit>(before);
    const bool isReplaced = row.overlay && !isExiting;
    EXPECT_EQ(overlay(), isReplaced ? *row.overlay : before);
    EXPECT_EQ(events("overlay").size(), isReplaced ? 1U : 0U);
    EXPECT_EQ(events("sound"),
              row.sounds ? std::vector<std::string>{R"("name":"Glass","volume":0.4)"} : std::vector<std::string>{});
    EXPECT_EQ(controller().suppressAttemptsUntil(),
              row.suppresses ? now() + 2.0 : startOfScene + 3.0); // otherwise still that of the resume
    EXPECT_EQ(events("activate"),
              row.focuses && !isExiting ? std::vector<std::string>{R"("pid":10)"} : std::vector<std::string>{});
    EXPECT_EQ(log().front(), "segment " + std::string{from ? "1 " : "0 "} + std::string{rawValue(to)});
    EXPECT_EQ(session().returns, 0);
    EXPECT_EQ(session().attempts, 0);
}

std::string changeName(const ::testing::TestParamInfo<Change>& info) {
    const auto [from, to, screen] = info.param;
    return std::string{from ? rawValue(*from) : "resume"} + "To_" + std::string{rawValue(to)} + "Under_" +
           std::string{name(overlayState(screen, {}))};
}

INSTANTIATE_TEST_SUITE_P(Changes, SegmentChangeTest,
                         ::testing::Combine(::testing::Values(std::nullopt, SegmentKind::work, SegmentKind::shortBreak,
                                                              SegmentKind::longBreak, SegmentKind::lockedBreak),
                                            ::testing::Values(SegmentKind::work, SegmentKind::shortBreak,
                                                              SegmentKind::longBreak, SegmentKind::lockedBreak),
                                            ::testing::Range(std::size_t{0}, overlayStates)),
                         changeName);

/// The changes as they come about in sessions.
class PlanTest : public EngineTest {
protected:
    PlanTest() { addEditorAndGame(); }
};

TEST_F(PlanTest, aBreakIsAnnouncedByASoundAlone) {
    startSession(profile(SessionMode::pomodoro));
    forgetEvents();
    advance(25 * 60 - 3);
    EXPECT_THAT(eventNames(), ElementsAre("log", "sound", "overlay"));
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Glass","volume":0.4)"));
    EXPECT_THAT(events("overlay"), ElementsAre(R"("state":"none")"));
    EXPECT_THAT(log(), ElementsAre("segment 1 shortBreak"));
    EXPECT_EQ(saves(sessionFile), 0U);
}

TEST_F(PlanTest, aLockedBreakHasItsScreen) {
    startSession(profile(SessionMode::deep));
    advance(60 * 60 - 3);
    EXPECT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_EQ(log().back(), "segment 1 lockedBreak");
}

TEST_F(PlanTest, workAfterALockedBreakGivesTheFrontBackWithoutAScreen) {
    startSession(profile(SessionMode::deep));
    advance(65 * 60 - 3.5);
    forgetEvents();
    advance(0.5);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("log", "sound", "overlay", "activate"));
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":10)"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_EQ(session().returns, 0);
}

TEST_F(PlanTest, workAfterAnOpenBreakWaitsForTheUser) {
    startSession(profile(SessionMode::pomodoro));
    advance(30 * 60 - 3.5);
    forgetEvents();
    advance(0.5);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("log", "sound", "overlay"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_EQ(session().returns, 0);
    advance(600);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
}

TEST_F(PlanTest, whatTheBreakHasBroughtForwardIsHiddenUnderTheScreenAndNotCounted) {
    startSession(profile(SessionMode::pomodoro));
    advance(26 * 60);
    push();
    EXPECT_FALSE(isHidden(game));
    advance(5 * 60);
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(session().attempts, 0);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
}

TEST_F(PlanTest, aWarningGivesWayToAnOpenBreakWithoutCountingAsAReturn) {
    startSession(profile(SessionMode::pomodoro));
    push();
    ASSERT_TRUE(shows<Overlay::Warning>(overlay()));
    advance(25 * 60);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().attempts, 1);
    EXPECT_EQ(session().returns, 0);
}

TEST_F(PlanTest, aWarningGivesWayToALockedBreakWithoutCountingAsAReturn) {
    startSession(profile(SessionMode::deep));
    push();
    ASSERT_TRUE(shows<Overlay::Warning>(overlay()));
    advance(60 * 60);
    EXPECT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_EQ(session().attempts, 1);
    EXPECT_EQ(session().returns, 0);
}

TEST_F(PlanTest, anExitUnderWayStaysWhenABreakBegins) {
    startSession(profile(SessionMode::pomodoro));
    controller().beginEmergencyExit();
    const OverlayState before = overlay();
    forgetEvents();
    advance(26 * 60);
    EXPECT_EQ(overlay(), before);
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Glass","volume":0.4)"));
    EXPECT_THAT(events("overlay"), IsEmpty());
}

TEST_F(PlanTest, anExitUnderWayStaysWhenWorkBeginsAndAttemptsAreSuppressed) {
    startSession(profile(SessionMode::pomodoro));
    controller().beginEmergencyExit();
    const OverlayState before = overlay();
    advance(30 * 60 - 3);
    EXPECT_EQ(overlay(), before);
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
}

TEST_F(PlanTest, aWarningGivesWayToTheNextStretchOfWork) {
    run({{SegmentKind::work, 10}, {SegmentKind::work, 60}});
    advance(5);
    push();
    ASSERT_TRUE(shows<Overlay::Warning>(overlay()));
    advance(5);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, 0);
}

} // namespace
} // namespace velmorin
