#pragma once

#include "app/simulate/Scenario.h"
#include "tests/support/MemoryFiles.h"
#include "tests/walk/Invariant.h"
#include "tests/walk/WalkStep.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Watches a scene from outside: hears each event at the moment it happens and looks at everything after each step.
/// What it knows of the rules is written here once more, and plainly, without the engine's own code where that decides.
class Invariants {
public:
    /// All must outlive this.
    Invariants(Scenario& scenario, const MemoryFiles& files, std::filesystem::path directory);

    void beforeStep(const WalkStep& step);
    void onEvent(const SimulatedEvent& event);
    void afterStep();
    /// Remembers the first violation.
    void fail(Invariant invariant, std::string what);
    const std::optional<Violation>& violation() const { return m_violation; }

private:
    using Handler = void (Invariants::*)(const SimulatedEvent&);
    static const std::map<std::string, Handler, std::less<>>& handlers();

    /// What the program holds and must not lose.
    struct Memory {
        std::optional<ActiveSession> session;
        std::vector<SessionRecord> history;
        std::vector<SessionRecord> cleared;
        std::vector<Thought> thoughts;
        AppSettings settings;
    };
    /// What is known of a file: read only when it has changed.
    struct Stored {
        bool isStale = false; ///< the last write failed
        bool hasChanged = true;
    };
    /// A list script of the present process.
    struct Script {
        UUID session;
        std::string kind;
        double sentAt = 0;
        double endsAt = 0;
    };

    SimulatedProgram* program() const { return m_scenario.scene() ? m_scenario.scene()->program() : nullptr; }
    SessionController& controller() const { return program()->controller(); }
    const SimulatedWorkspace& workspace() const { return m_scenario.scene()->desktop().workspace; }
    Date now() const { return m_scenario.scene()->desktop().time.now(); }
    bool isStep(std::string_view action) const { return m_step.action == action; }
    bool isLocked() const;
    void require(bool holds, Invariant invariant, const char* what) {
        if (!holds) fail(invariant, what);
    }

    // The process.
    void look();
    void takeUp(SimulatedProgram& program);
    void checkRelaunch();
    void checkSecondInstance();
    void checkQuitting();
    void terminated(const SimulatedEvent& event);

    // The session and its counters.
    void lookAtSession();
    void compareSession(const ActiveSession& before, const ActiveSession& after);
    void lookAtSuppression();
    void countAttempt();
    void ticked(const SimulatedEvent& event);
    void sounded(const SimulatedEvent& event);
    void logged(const SimulatedEvent& event);
    void overlayChanged(const SimulatedEvent& event);
    void checkNewOverlay(const OverlayState& from, const OverlayState& to);
    void checkLeaving(const OverlayState& from, const OverlayState& to);
    void checkOverlay();
    void sessionEnded(const SimulatedEvent& event);
    void sessionChanged(const SimulatedEvent& event);
    void checkRecord(const SessionRecord& record);
    void checkIdle();
    void checkStart();
    void checkPhone();

    // The applications and browsers.
    Workspace::Application application(const SimulatedEvent& event) const;
    bool isAllowed(const std::optional<std::string>& bundleID) const;
    bool isForbidden(const RunningApplication& application) const;
    void checkTouched(const RunningApplication& application);
    void hid(const SimulatedEvent& event);
    void unhid(const SimulatedEvent& event);
    void askedToQuit(const SimulatedEvent& event);
    void broughtForward(const SimulatedEvent& event);
    void opened(const SimulatedEvent& event);
    void checkHold();
    void checkShownAgain();
    void noteWhoRuns();
    void delayAnswers();
    void ranScript(const SimulatedEvent& event);
    void listedTabs(const std::string& kind, double timeout, double time);

    // The store.
    void saved(const SimulatedEvent& event);
    void saveFailed(const SimulatedEvent& event);
    void removed(const SimulatedEvent& event);
    void tookTo(const std::string& file);
    void tookHistory();
    void tookClearedHistory();
    void checkStore();
    void checkSessionFile();
    template <class Value>
    void checkFile(std::string_view file, const Value& held, const Value& remembered, std::optional<Value>& read);
    const std::string* content(std::string_view file) const;

    Scenario& m_scenario;
    const MemoryFiles& m_files;
    std::filesystem::path m_directory;
    std::optional<Violation> m_violation;
    std::size_t m_stepCount = 0;

    // Before the present step.
    WalkStep m_step;
    bool m_wasAlive = false;
    std::optional<ActiveSession> m_sessionBefore;
    std::map<std::filesystem::path, std::string> m_contentsBefore;
    std::optional<ActiveSession> m_left; ///< the session that a dead process has left behind

    // Of the process as it was last seen.
    std::int32_t m_process = 0;
    std::optional<ActiveSession> m_session;
    OverlayState m_overlay{Overlay::None{}};
    Date m_suppressedUntil = Date::distantPast();
    std::int64_t m_tickCount = 0;
    std::optional<double> m_lastTick;
    bool m_hasBegunSinceTick = false;
    bool m_isMovingOn = false; ///< the plan has changed segments in this tick
    bool m_isEnding = false;
    bool m_isShuttingDown = false;
    std::string m_lastEvent;
    std::optional<ActiveSession> m_ended;
    std::optional<ActiveSession> m_lastSaved; ///< or tried to

    // What each counted attempt still lacks.
    bool m_lacksWarning = false;
    bool m_lacksSound = false;
    bool m_lacksLine = false;
    bool m_lacksReturnLine = false;
    bool m_lacksHidLine = false;

    // Of the machine.
    std::set<std::int32_t> m_hidden;    ///< by the program in this session
    std::set<std::int32_t> m_ranBefore; ///< while nothing was locked
    std::map<std::int32_t, int> m_asked;
    std::vector<Script> m_scripts;
    std::map<std::string, double> m_delays; ///< of the browsers' answers

    // Of the store.
    Memory m_memory;
    bool m_hasMemory = false;
    std::map<std::string, Stored, std::less<>> m_stored;
    std::optional<ActiveSession> m_readSession;
    std::optional<std::vector<SessionRecord>> m_readHistory;
    std::optional<std::vector<SessionRecord>> m_readCleared;
    std::optional<std::vector<Thought>> m_readThoughts;
    std::optional<AppSettings> m_readSettings;
};

} // namespace velmorin
