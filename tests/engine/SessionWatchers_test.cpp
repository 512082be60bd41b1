// Who is told of what, in which order, and what may be done from there.

#include "tests/support/EngineTest.h"

#include <utility>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SessionWatchersTest : public EngineTest {
protected:
    SessionWatchersTest() {
        setup.tellsTicks = true;
        setup.exitWaitOverride = 0;
        addEditorAndGame();
    }

    /// One minute of work and nothing else.
    static Profile shortSession() {
        Profile made = profile(SessionMode::deep);
        made.deep = {1, 0, 0};
        return made;
    }
    template <class Value>
    [[nodiscard]] Cancellable count(const Observable<Value>& value, int& changes) {
        return value.watch([&changes] { ++changes; });
    }
};

TEST_F(SessionWatchersTest, watchersOfTheSessionHearOfItsStartItsCountersAndItsEnd) {
    launch();
    int changes = 0;
    const auto watch = count(controller().session(), changes);
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(changes, 2); // it came, and has hidden the game
    settle();
    advance(60);
    EXPECT_EQ(changes, 2);
    push();
    EXPECT_EQ(changes, 3);
    controller().returnToWork();
    EXPECT_EQ(changes, 4);
    endEarly();
    EXPECT_EQ(changes, 5);
}

TEST_F(SessionWatchersTest, watchersOfTheStatusHearOfChangesOnly) {
    run({work, longRest});
    int changes = 0;
    const auto watch = count(controller().status(), changes);
    advance(3);
    EXPECT_EQ(changes, 3);
    // The clock is set so that the next tick finds what the last one found.
    desktop().time.setClock(-1);
    advance(1);
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(events("tick").size(), 4U);
    advance(1);
    EXPECT_EQ(changes, 4);
}

TEST_F(SessionWatchersTest, watchersOfAWarningHearOfAChangeInAnyOfItsFields) {
    launch();
    const WarningInfo info{"Game", 1, now(), now() + 5.0};
    WarningInfo target = info;
    WarningInfo attempt = info;
    WarningInfo startedAt = info;
    WarningInfo pauseEndsAt = info;
    target.target = "Player";
    attempt.attempt = 2;
    startedAt.startedAt = now() + 1.0;
    pauseEndsAt.pauseEndsAt = now() + 6.0;
    for (const auto& other : {target, attempt, startedAt, pauseEndsAt}) {
        controller().setOverlay(Overlay::Warning{info});
        int changes = 0;
        const auto watch = count(controller().overlay(), changes);
        controller().setOverlay(Overlay::Warning{info});
        EXPECT_EQ(changes, 0);
        controller().setOverlay(Overlay::Warning{other});
        EXPECT_EQ(changes, 1);
    }
}

TEST_F(SessionWatchersTest, watchersOfAnExitOrASummaryHearOfAnotherPayload) {
    launch();
    SessionRecord record;
    controller().setOverlay(Overlay::EmergencyExit{now()});
    int changes = 0;
    const auto watch = count(controller().overlay(), changes);
    controller().setOverlay(Overlay::EmergencyExit{now() + 1.0});
    EXPECT_EQ(changes, 1);
    controller().setOverlay(Overlay::Finished{record});
    EXPECT_EQ(changes, 2);
    controller().setOverlay(Overlay::Finished{record});
    EXPECT_EQ(changes, 2);
    record.exitReason = "";
    controller().setOverlay(Overlay::Finished{record});
    EXPECT_EQ(changes, 3);
}

TEST_F(SessionWatchersTest, theCallbackHearsOfAnOverlayThatIsStored) {
    run({work});
    std::vector<bool> isStored;
    controller().onOverlayChange = [&](const OverlayState& state) { isStored.push_back(state == overlay()); };
    controller().beginEmergencyExit();
    controller().cancelEmergencyExit();
    EXPECT_THAT(isStored, ElementsAre(true, true));
}

TEST_F(SessionWatchersTest, theCallbackHearsOfWhatItAssignsItselfOnceTheOperationIsOver) {
    run({work});
    std::vector<std::string> told;
    controller().onOverlayChange = [&](const OverlayState& state) {
        if (!shows<Overlay::None>(state)) controller().setOverlay(Overlay::None{});
        told.emplace_back(name(state));
    };
    controller().beginEmergencyExit();
    EXPECT_THAT(told, ElementsAre("emergencyExit"));
    settle();
    EXPECT_THAT(told, ElementsAre("emergencyExit", "none"));
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
}

TEST_F(SessionWatchersTest, theCallbackHearsOfEachValueAlsoWhereAWatcherAssignsAnother) {
    run({work});
    std::vector<std::string> told;
    controller().onOverlayChange = [&](const OverlayState& state) { told.emplace_back(name(state)); };
    const auto watch = controller().overlay().watch([this] { controller().setOverlay(Overlay::None{}); });
    controller().beginEmergencyExit();
    settle();
    EXPECT_THAT(told, ElementsAre("emergencyExit", "none", "none"));
}

TEST_F(SessionWatchersTest, theCallbacksOfAStartComeInTheirOrder) {
    launch();
    forgetEvents();
    std::vector<std::string> seen;
    onEvent = [&](const SimulatedEvent& event) {
        if (event.name != "sessionChange" && event.name != "tick" && event.name != "sessionBegan") return;
        seen.push_back(event.name + (controller().isActive() ? " active" : "") +
                       (*controller().status() ? " placed" : ""));
    };
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_THAT(seen, ElementsAre("sessionChange active", "tick active placed", "sessionBegan active placed"));
}

TEST_F(SessionWatchersTest, aSessionRunsWithoutAnyCallback) {
    launch();
    auto& quiet = controller();
    quiet.onOverlayChange = nullptr;
    quiet.onSessionChange = nullptr;
    quiet.onTick = nullptr;
    quiet.onSessionBegan = nullptr;
    quiet.onSessionEnded = nullptr;
    startSession(profile(SessionMode::pomodoro));
    push();
    quiet.returnToWork();
    endEarly();
    EXPECT_EQ(data().history()->front().returns, 1);
}

TEST_F(SessionWatchersTest, aWatcherOfTheStatusMayEndTheSession) {
    run({work, longRest, longRest}, 59);
    const auto watch = controller().status().watch([this] {
        if (controller().isActive()) controller().beginEmergencyExit();
    });
    advance(1); // into the first rest, after which no work comes
    EXPECT_FALSE(controller().isActive());
    EXPECT_FALSE(*controller().status());
    EXPECT_EQ(controller().lastSegmentIndex(), std::nullopt);
    EXPECT_EQ(data().history()->size(), 1U);
    EXPECT_EQ(events("tick").size(), 2U); // the tick's own, and that of the end
    EXPECT_EQ(desktop().time.nextDeadline(), std::nullopt);
}

TEST_F(SessionWatchersTest, theCallbackOfTheOverlayMayEndTheSessionWhoseSegmentChanges) {
    run({work, longRest, longRest}, 59);
    controller().onOverlayChange = [this](const OverlayState&) { controller().beginEmergencyExit(); };
    advance(1);
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(controller().lastSegmentIndex(), std::nullopt);
    EXPECT_EQ(events("tick").size(), 2U);
    EXPECT_EQ(data().history()->size(), 1U);
}

TEST_F(SessionWatchersTest, aSessionThatAWatcherEndsAsItBeginsIsOverAsAWhole) {
    launch();
    const auto watch = controller().session().watch([this] {
        if (!controller().isActive()) return;
        endEarly();
    });
    controller().start(profile(SessionMode::pomodoro), "write");
    settle();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(data().history()->size(), 1U);
    EXPECT_FALSE(desktop().serviceManager.job);
    EXPECT_FALSE(file(sessionFile));
    EXPECT_EQ(desktop().time.nextDeadline(), std::nullopt);
    EXPECT_EQ(events("sessionBegan").size(), 1U);
    EXPECT_EQ(events("sessionEnded").size(), 1U);
}

TEST_F(SessionWatchersTest, aSessionThatIsEndedAsItEndsBecomesOneRecord) {
    run({work, longRest}, 59);
    controller().onSessionEnded = [this](const ActiveSession&) { controller().beginEmergencyExit(); };
    advance(1); // no work is left
    controller().beginEmergencyExit();
    settle();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(data().history()->size(), 1U);
}

TEST_F(SessionWatchersTest, anAttemptWhoseWatcherEndsTheSessionLeavesNoWarning) {
    startSession(profile(SessionMode::pomodoro));
    const auto watch = controller().session().watch([this] {
        if (!controller().isActive()) return;
        endEarly();
    });
    start("org.example.newcomer");
    EXPECT_FALSE(controller().isActive());
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_TRUE(controller().terminateRetries().empty());
    EXPECT_FALSE(isHidden(game));
    EXPECT_EQ(data().history()->front().attempts, 1);
}

TEST_F(SessionWatchersTest, theCallbackOfTheOverlayMayPutAShorterSessionInThePlaceOfAnother) {
    run({work, work, work, longRest, longRest}, 179);
    bool isReplaced = false;
    controller().onOverlayChange = [&](const OverlayState&) {
        if (std::exchange(isReplaced, true)) return;
        controller().beginEmergencyExit();
        controller().start(shortSession(), "next");
    };
    advance(1); // into the rest at index 3, which the next session's plan does not have
    ASSERT_TRUE(isReplaced);
    EXPECT_EQ(session().intent, "next");
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    EXPECT_EQ(controller().tickCount(), 2); // one at the start of each
    advance(30);
    EXPECT_EQ((*controller().status())->remainingInSegment, 30);
    EXPECT_EQ(log().back(), "session started mode=deep segments=1");
}

TEST_F(SessionWatchersTest, theSessionThatComesInThePlaceOfAnotherDuringItsTickIsNotMistakenForIt) {
    run({work, work, work, longRest}, 179);
    const auto watch = controller().status().watch([this] {
        if (!controller().isActive() || session().intent == "next" || controller().lastSegmentIndex() != 2) return;
        controller().beginEmergencyExit();
        controller().start(shortSession(), "next");
    });
    advance(1); // into the rest at index 3, which the next session's plan does not have
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session().intent, "next");
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    advance(30);
    EXPECT_EQ((*controller().status())->remainingInSegment, 30);
    EXPECT_EQ(log().back(), "session started mode=deep segments=1");
}

/// Where a session can be started from.
struct Place {
    const char* name;
    Cancellable (*arm)(SessionController& controller, std::function<void()> call);
    bool isReachedAtTheStart; ///< of another session
};

/// Adds a call to a callback.
template <class... Values>
Cancellable add(std::function<void(Values...)>& callback, std::function<void()> call) {
    callback = [before = callback, call = std::move(call)](Values... values) {
        if (before) before(values...);
        call();
    };
    return {};
}

class StartFromInsideTest : public SessionWatchersTest, public ::testing::WithParamInterface<Place> {
protected:
    /// Starts a session when the place is reached for the first time.
    [[nodiscard]] Cancellable startThere() {
        return GetParam().arm(controller(), [this] {
            if (std::exchange(m_isDone, true)) return;
            controller().start(profile(SessionMode::deep), "from inside");
        });
    }
    bool isDone() const { return m_isDone; }

private:
    bool m_isDone = false;
};

TEST_P(StartFromInsideTest, doesNothingWhileAnotherComesUp) {
    launch();
    const auto armed = startThere();
    controller().start(profile(SessionMode::pomodoro), "write");
    settle();
    ASSERT_EQ(isDone(), GetParam().isReachedAtTheStart);
    EXPECT_EQ(session().intent, "write");
    EXPECT_EQ(events("sessionBegan").size(), 1U);
    advance(10);
    EXPECT_EQ(events("tick").size(), 11U);
    EXPECT_EQ(*stored<ActiveSession>(sessionFile), session());
}

TEST_P(StartFromInsideTest, waitsForTheEndOfAnother) {
    run({work}, 59);
    const auto armed = startThere();
    advance(1);
    ASSERT_TRUE(isDone());
    EXPECT_EQ(data().history()->size(), 1U);
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session().intent, "from inside");
    ASSERT_TRUE(*controller().status());
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    EXPECT_EQ(*stored<ActiveSession>(sessionFile), session());
    EXPECT_TRUE(desktop().serviceManager.job);
    // It is the first's end that put its summary up; the new one ticks and locks beneath it.
    forgetEvents();
    advance(5);
    push();
    EXPECT_EQ(events("tick").size(), 5U);
    EXPECT_TRUE(isHidden(game));
    EXPECT_THAT(log(), ElementsAre("hid org.example.game"));
}

INSTANTIATE_TEST_SUITE_P(
    Places, StartFromInsideTest,
    ::testing::Values(
        Place{"onOverlayChange",
              [](SessionController& controller, auto call) { return add(controller.onOverlayChange, call); }, false},
        Place{"onSessionChange",
              [](SessionController& controller, auto call) { return add(controller.onSessionChange, call); }, true},
        Place{"onTick", [](SessionController& controller, auto call) { return add(controller.onTick, call); }, true},
        Place{"onSessionEnded",
              [](SessionController& controller, auto call) { return add(controller.onSessionEnded, call); }, false},
        Place{"aWatcherOfTheSession",
              [](SessionController& controller, auto call) { return controller.session().watch(call); }, true},
        Place{"aWatcherOfTheStatus",
              [](SessionController& controller, auto call) { return controller.status().watch(call); }, true},
        Place{"aWatcherOfTheOverlay",
              [](SessionController& controller, auto call) { return controller.overlay().watch(call); }, false}),
    [](const auto& test) { return std::string{test.param.name}; });

} // namespace
} // namespace velmorin
