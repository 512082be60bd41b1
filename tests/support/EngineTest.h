#pragma once

#include "app/simulate/Scene.h"
#include "tests/support/MemoryFiles.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The real engine on a simulated desktop whose disk is in memory. Nothing runs before `launch`; what was set in
/// `setup` until then holds for every process.
class EngineTest : public ::testing::Test {
protected:
    static constexpr Date startOfScene{800'000'000};
    static constexpr std::int32_t editor = 10;
    static constexpr std::int32_t game = 11;
    static constexpr std::int32_t chrome = 12;
    static constexpr std::int32_t finder = 13;
    /// Stretches of one minute, for plans.
    static constexpr Segment work{SegmentKind::work, 60};
    static constexpr Segment shortRest{SegmentKind::shortBreak, 60};
    static constexpr Segment longRest{SegmentKind::longBreak, 60};
    static constexpr Segment lockedRest{SegmentKind::lockedBreak, 60};
    static constexpr auto sessionFile = SessionController::sessionFile;
    /// Long enough for an early end.
    static constexpr const char* reason = "enough for today";

    EngineTest();

    // The machine.
    SimulatedDesktop& desktop();
    void addApplication(std::int32_t pid, std::string_view bundleID, std::string_view name);
    /// The editor in front, which `profile` allows, and the game, which it does not.
    void addEditorAndGame();
    void launch(LaunchedBy by = LaunchedBy::user) {
        scene().launch(by);
        settle();
    }
    void crash() { scene().crash(); }
    void relaunch() { launch(LaunchedBy::watchdog); }
    void settle() { desktop().time.settle(); }
    void advance(double seconds) { desktop().time.advance(seconds); }
    void activate(std::int32_t pid) {
        desktop().workspace.activate(pid);
        settle();
    }
    /// Starts an application and tells its process identifier.
    std::int32_t start(std::string_view bundleID, QuitManners quits = QuitManners::politely, bool inFront = true);
    bool isHidden(std::int32_t pid);
    bool isRunning(std::int32_t pid) { return desktop().workspace.isRunning(pid); }
    /// The process identifier of what is in front; absent with nothing there.
    std::optional<std::int32_t> front();

    // The program.
    Scene& scene();
    SimulatedProgram& program() { return *scene().program(); }
    SessionController& controller() { return program().controller(); }
    AppData& data() { return program().data(); }
    const ActiveSession& session() { return **controller().session(); }
    const OverlayState& overlay() { return *controller().overlay(); }
    Date now() { return desktop().time.now(); }
    /// A profile of the default timings that allows the editor, and what else is named.
    static Profile profile(SessionMode mode, std::vector<std::string> alsoAllowed = {},
                           std::vector<std::string> domains = {});
    /// Writes the session file as a process leaves it that died so many seconds into a session with this plan, which
    /// allows the editor.
    ActiveSession leaveSession(std::vector<Segment> plan, double elapsed);
    /// Launches where nothing runs yet, starts a session of `profile` and lets the time pass in which nothing counts.
    void startSession(const Profile& profile);
    /// A session of this plan, so many seconds after its start, taken up by a process whose launch is forgotten.
    void run(std::vector<Segment> plan, double elapsed = 0);
    /// Ends the session early, where `exitWaitOverride` lets that happen at once.
    void endEarly();
    /// The session that has ended last.
    const SessionRecord& record() { return data().history()->front(); }
    /// Pushes against the lock with the game, so that a warning is up.
    void push() { activate(game); }

    // What happened.
    /// The details of all events of a name, as in `"pid":11`.
    std::vector<std::string> events(std::string_view name) const;
    /// The names of all events, in order.
    std::vector<std::string> eventNames() const;
    /// The lines of the event log, without their dates.
    std::vector<std::string> log() const;
    /// How often a file was saved.
    std::size_t saves(std::string_view file) const;
    void forgetEvents() { m_events.clear(); }
    std::function<void(const SimulatedEvent&)> onEvent; ///< called at each event, to look around there
    /// What a file holds; absent when there is none.
    std::optional<std::string> file(std::string_view name) const;
    void writeFile(std::string_view name, std::string text);
    template <class Value>
    std::optional<Value> stored(std::string_view name) const {
        const auto text = file(name);
        return text ? decodeJSON<Value>(*text) : std::nullopt;
    }

    ProgramSetup setup;
    MemoryFiles files;
    Files* disk = &files; ///< what the machine keeps its files in

private:
    std::unique_ptr<Scene> m_scene;
    std::vector<SimulatedEvent> m_events;
};

} // namespace velmorin
