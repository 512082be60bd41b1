#include "tests/walk/Invariants.h"

#include "core/foundation/JSONCoding.h"

#include <utility>

namespace velmorin {

Invariants::Invariants(Scenario& scenario, const MemoryFiles& files, std::filesystem::path directory)
    : m_scenario{scenario}, m_files{files}, m_directory{std::move(directory)} {}

const std::map<std::string, Invariants::Handler, std::less<>>& Invariants::handlers() {
    static const std::map<std::string, Handler, std::less<>> handlers{
        {"tick", &Invariants::ticked},
        {"log", &Invariants::logged},
        {"overlay", &Invariants::overlayChanged},
        {"sessionEnded", &Invariants::sessionEnded},
        {"sessionChange", &Invariants::sessionChanged},
        {"hide", &Invariants::hid},
        {"unhide", &Invariants::unhid},
        {"terminate", &Invariants::askedToQuit},
        {"activate", &Invariants::broughtForward},
        {"open", &Invariants::opened},
        {"script", &Invariants::ranScript},
        {"sound", &Invariants::sounded},
        {"save", &Invariants::saved},
        {"saveFailed", &Invariants::saveFailed},
        {"remove", &Invariants::removed},
        {"terminateApplication", &Invariants::terminated},
    };
    return handlers;
}

void Invariants::fail(Invariant invariant, std::string what) {
    if (!m_violation) m_violation = Violation{invariant, std::move(what), m_stepCount};
}

void Invariants::beforeStep(const WalkStep& step) {
    m_step = step;
    ++m_stepCount;
    m_wasAlive = program() != nullptr;
    m_sessionBefore = m_wasAlive ? *controller().session() : std::nullopt;
    // What a dead process left, and what a second instance must leave alone.
    const bool isRelaunch = isStep("relaunch");
    if (isRelaunch || !m_wasAlive) m_contentsBefore = m_files.contents;
    m_left.reset();
    if (isRelaunch && !m_wasAlive) {
        const std::string* text = content(SessionController::sessionFile);
        m_left = text ? decodeJSON<ActiveSession>(*text) : std::nullopt;
    }
    if (m_wasAlive && isStep("powerOff")) m_isShuttingDown = true;
    if (isStep("sleep")) delayAnswers();
    if (m_wasAlive && isStep("browser") && step.number)
        m_delays[step.details.substr(8, step.details.find('"', 8) - 8)] = step.number->value;
}

// What is due while the machine sleeps comes when it wakes.
void Invariants::delayAnswers() {
    const double asleep = m_scenario.scene()->desktop().time.elapsed();
    const double awake = asleep + m_step.number->value;
    for (auto& script : m_scripts) {
        if (script.endsAt > asleep && script.endsAt < awake) script.endsAt = awake;
    }
}

void Invariants::onEvent(const SimulatedEvent& event) {
    look();
    const auto handler = handlers().find(event.name);
    if (handler != handlers().end()) (this->*handler->second)(event);
    m_lastEvent = event.name;
}

void Invariants::afterStep() {
    look();
    if (isStep("relaunch")) m_wasAlive ? checkSecondInstance() : checkRelaunch();
    if (isStep("askToQuit") && m_wasAlive) checkQuitting();
    const bool hasEndedLosingNothing =
        !isStep("crash") ||
        m_scenario.scene()->desktop().serviceManager.job.has_value() == m_memory.session.has_value();
    require(hasEndedLosingNothing, Invariant::watchdogGuardsTheSession, "the crash took the job, or left one behind");
    if (program()) {
        require(!m_lacksHidLine, Invariant::hidingIsLogged, "an application was hidden without a line");
        require(!m_lacksWarning && !m_lacksSound && !m_lacksLine, Invariant::attemptIsShownHeardAndLogged,
                "an attempt lacks its warning, its sound or its line");
        require(!m_lacksReturnLine, Invariant::returnsOnlyFromWarnings, "a return lacks its line");
        checkOverlay();
        checkIdle();
        checkStart();
        checkPhone();
        checkStore();
        m_memory.session = *controller().session();
    } else if (!m_wasAlive && m_stepCount > 0 && !isStep("relaunch")) {
        require(m_contentsBefore == m_files.contents, Invariant::crashLosesNothing, "a file changed with nobody there");
    }
    if (!program() || !isLocked()) noteWhoRuns();
}

bool Invariants::isLocked() const {
    const auto& status = *controller().status();
    return controller().isActive() && status && status->isLocked();
}

void Invariants::look() {
    SimulatedProgram* const living = program();
    if (!living) return;
    if (living->pid() != m_process) takeUp(*living);
    lookAtSession();
    lookAtSuppression();
}

/// A new process: what it has read must be what the last one held.
void Invariants::takeUp(SimulatedProgram& program) {
    const AppData& data = program.data();
    if (m_hasMemory) {
        const auto isFresh = [this](std::string_view file) {
            const auto found = m_stored.find(file);
            return found == m_stored.end() || !found->second.isStale;
        };
        const bool isSame = (!isFresh(AppData::historyFile) || *data.history() == m_memory.history) &&
                            (!isFresh(AppData::clearedHistoryFile) || *data.clearedHistory() == m_memory.cleared) &&
                            (!isFresh(AppData::thoughtsFile) || *data.thoughts() == m_memory.thoughts) &&
                            (!isFresh(AppData::settingsFile) || *data.settings() == m_memory.settings) &&
                            (!isFresh(SessionController::sessionFile) || m_left == m_memory.session);
        require(isSame, Invariant::crashLosesNothing, "the new process reads something else than the last one held");
        // What was hidden while the session could not be saved is not known any more.
        if (!isFresh(SessionController::sessionFile)) m_hidden.clear();
    }
    m_stored.clear();
    m_hasMemory = true;
    m_memory = {m_left, *data.history(), *data.clearedHistory(), *data.thoughts(), *data.settings()};
    m_process = program.pid();
    m_session.reset();
    m_overlay = Overlay::None{};
    m_suppressedUntil = Date::distantPast();
    m_tickCount = 0;
    m_lastTick.reset();
    m_isMovingOn = m_isEnding = m_isShuttingDown = false;
    m_lacksWarning = m_lacksSound = m_lacksLine = m_lacksReturnLine = m_lacksHidLine = false;
    m_lastSaved = m_left;
    m_scripts.clear();
}

void Invariants::checkRelaunch() {
    constexpr auto rule = Invariant::launchDecidesByWhatIsLeft;
    const bool byWatchdog = m_step.details == "\"watchdog\":true";
    SimulatedProgram* const living = program();
    if (!m_left || m_left->segments.empty()) {
        require((living != nullptr) != byWatchdog, rule, "with nothing left, the user's process stays and no other");
        require(!living || !controller().isActive(), rule, "a session out of nothing");
        return;
    }
    const double late = now() - m_left->plannedEnd();
    if (late >= 0) {
        const bool hasSummary = late < 300;
        require(!m_memory.history.empty() && m_memory.history.front().id == m_left->id &&
                    m_memory.history.front().endedAt == m_left->plannedEnd(),
                rule, "the session that ran out is no record");
        require((living != nullptr) == (hasSummary || !byWatchdog), rule, "stays without reason, or goes without");
        require(!living || shows<Overlay::Finished>(*controller().overlay()) == hasSummary, rule, "the summary");
        return;
    }
    require(living && controller().isActive(), rule, "the session is not taken up");
    if (!living || !controller().isActive()) return;
    const ActiveSession& session = **controller().session();
    require(session.id == m_left->id && session.attempts == m_left->attempts && session.returns == m_left->returns &&
                session.hiddenBundleIDs.size() >= m_left->hiddenBundleIDs.size(),
            Invariant::crashLosesNothing, "the session taken up is another one");
}

void Invariants::checkSecondInstance() {
    constexpr auto rule = Invariant::secondInstanceTouchesNothing;
    require(program() && program()->pid() == m_process, rule, "the first instance is gone");
    require(m_contentsBefore == m_files.contents, rule, "a file has changed");
    require(!program() || *controller().session() == m_sessionBefore, rule, "the session has changed");
}

void Invariants::checkQuitting() {
    const bool mayQuit = !m_sessionBefore || m_isShuttingDown;
    require((program() == nullptr) == mayQuit, Invariant::quitsOnlyWhenFree, "quits during a session, or not at all");
}

void Invariants::terminated(const SimulatedEvent&) {
    // With a living one there, it was a second instance that went.
    require(program() || !m_session || m_isShuttingDown, Invariant::quitsOnlyWhenFree, "quits during a session");
}

} // namespace velmorin
