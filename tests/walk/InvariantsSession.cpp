// What must hold of a session: its counters, its overlay, its end and what becomes of it.

#include "core/rules/Friction.h"
#include "tests/walk/Invariants.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace velmorin {

namespace {

constexpr double hair = 1e-5; // seconds; what rounding makes of moments this far from 2001

bool isNear(double value, double expected) {
    return std::abs(value - expected) < hair;
}

double workOf(const ActiveSession& session) {
    double seconds = 0;
    for (const auto& segment : session.segments)
        seconds += segment.kind == SegmentKind::work ? segment.duration : 0;
    return seconds;
}

} // namespace

void Invariants::lookAtSession() {
    const auto& session = *controller().session();
    if (session == m_session) return;
    if (session && m_session && session->id == m_session->id) {
        compareSession(*m_session, *session);
    } else if (session) {
        m_hasBegunSinceTick = true;
    }
    require(!session || session->returns <= session->attempts, Invariant::returnsNeverExceedAttempts,
            "more returns than attempts");
    m_session = session;
}

void Invariants::compareSession(const ActiveSession& before, const ActiveSession& after) {
    if (after.attempts != before.attempts) {
        require(after.attempts == before.attempts + 1, Invariant::attemptsRiseByOne, "more than one at once, or fewer");
        countAttempt();
    }
    if (after.returns != before.returns) {
        require(after.returns == before.returns + 1 && shows<Overlay::Warning>(*controller().overlay()),
                Invariant::returnsOnlyFromWarnings, "a return that leaves no warning");
        m_lacksReturnLine = true;
    }
    const auto& hidden = after.hiddenBundleIDs;
    const bool hasGrown = hidden.size() >= before.hiddenBundleIDs.size() &&
                          std::equal(before.hiddenBundleIDs.begin(), before.hiddenBundleIDs.end(), hidden.begin());
    const std::set<std::string> distinct{hidden.begin(), hidden.end()};
    require(hasGrown && distinct.size() == hidden.size(), Invariant::hiddenListOnlyGrows, "it shrank, or one is twice");
    ActiveSession frozen = before;
    frozen.attempts = after.attempts;
    frozen.returns = after.returns;
    frozen.hiddenBundleIDs = hidden;
    require(frozen == after, Invariant::planIsFrozen, "something else of the session has changed");
}

// Seen at the save, which comes between the count and the overlay.
void Invariants::countAttempt() {
    require(shows<Overlay::None>(*controller().overlay()), Invariant::attemptsRiseByOne, "counted under a screen");
    require(now() >= controller().suppressAttemptsUntil(), Invariant::suppressedIsNotCounted, "counted too soon");
    require(isLocked(), Invariant::attemptsRiseByOne, "counted while nothing is locked");
    require(!m_lacksWarning && !m_lacksSound && !m_lacksLine, Invariant::attemptIsShownHeardAndLogged,
            "the attempt before lacks its warning, its sound or its line");
    m_lacksWarning = m_lacksSound = m_lacksLine = true;
}

void Invariants::lookAtSuppression() {
    const Date until = controller().suppressAttemptsUntil();
    if (until == m_suppressedUntil) return;
    const double ahead = until - now();
    require(isNear(ahead, 2) || isNear(ahead, 3), Invariant::suppressionIsShort, "neither 2 nor 3 seconds");
    m_suppressedUntil = until;
}

void Invariants::ticked(const SimulatedEvent& event) {
    if (!program()) return;
    const std::int64_t count = controller().tickCount();
    const bool isRunning = controller().isActive();
    require(count == m_tickCount + (isRunning && isLocked() ? 1 : 0), Invariant::ticksAreCounted, "tickCount");
    m_tickCount = count;
    const bool isAlone = !m_lastTick || event.time - *m_lastTick > 1 - hair;
    require(isAlone || m_hasBegunSinceTick || !isRunning, Invariant::oneTimer, "two ticks within a second");
    require(isRunning || m_lastEvent == "sessionChange", Invariant::oneTimer, "a tick without a session");
    if (isRunning && isLocked()) checkHold();
    if (isRunning && !isLocked()) noteWhoRuns();
    m_lastTick = event.time;
    m_hasBegunSinceTick = m_isMovingOn = false;
}

void Invariants::sounded(const SimulatedEvent& event) {
    if (!event.details.starts_with(R"("name":"Purr")")) return;
    require(m_lacksSound, Invariant::attemptIsShownHeardAndLogged, "a sound without an attempt");
    m_lacksSound = false;
}

void Invariants::logged(const SimulatedEvent& event) {
    if (!program() || !event.details.starts_with("\"text\":\"")) return;
    const std::string_view text = std::string_view{event.details}.substr(8);
    const auto says = [text](std::string_view word, std::int64_t number) {
        const auto line = std::string{word} + std::to_string(number);
        return text.starts_with(line + " ") || text.starts_with(line + "\"");
    };
    if (text.starts_with("hid ")) {
        require(m_lacksHidLine, Invariant::hidingIsLogged, "a line without a hiding");
        m_lacksHidLine = false;
    } else if (text.starts_with("attempt ")) {
        require(m_lacksLine && m_session && says("attempt ", m_session->attempts),
                Invariant::attemptIsShownHeardAndLogged, "a line without its attempt");
        m_lacksLine = false;
    } else if (text.starts_with("returned ")) {
        require(m_lacksReturnLine && m_session && says("returned ", m_session->returns),
                Invariant::returnsOnlyFromWarnings, "a line without its return");
        m_lacksReturnLine = false;
    } else if (text.starts_with("segment ")) {
        m_isMovingOn = true;
    }
}

void Invariants::overlayChanged(const SimulatedEvent&) {
    if (!program()) return;
    const OverlayState overlay = *controller().overlay();
    checkNewOverlay(m_overlay, overlay);
    checkLeaving(m_overlay, overlay);
    m_overlay = overlay;
}

void Invariants::checkNewOverlay(const OverlayState& from, const OverlayState& to) {
    constexpr auto rule = Invariant::overlayMovesForAReason;
    const auto& status = *controller().status();
    if (const auto* warning = std::get_if<Overlay::Warning>(&to)) {
        const WarningInfo& info = warning->info;
        require(shows<Overlay::None>(from) && m_lacksWarning && m_session && info.attempt == m_session->attempts, rule,
                "a warning without an attempt");
        require(info.startedAt == now() && info.pauseEndsAt == now() + Friction::warningPauseSeconds(info.attempt),
                rule, "the pause of a warning");
        m_lacksWarning = false;
    } else if (const auto* exit = std::get_if<Overlay::EmergencyExit>(&to)) {
        require(isStep("beginEmergencyExit") && m_session, rule, "an exit that nobody asked for");
        const double wait = m_session && m_session->mode == SessionMode::deep ? 180 : 60;
        require(exit->waitUntil == now() + controller().exitWaitOverride.value_or(wait), Invariant::exitWaitIsWhole,
                "the wait is another one");
    } else if (const auto* finished = std::get_if<Overlay::Finished>(&to)) {
        require(!m_session && m_ended && finished->record.id == m_ended->id, rule, "a summary of nothing");
    } else if (shows<Overlay::LockedBreak>(to)) {
        require(status && status->kind == SegmentKind::lockedBreak && (m_isMovingOn || isStep("cancelEmergencyExit")),
                rule, "a locked break at another time");
    } else if (shows<Overlay::BackToWork>(to)) {
        require(status && status->kind == SegmentKind::work && m_isMovingOn, rule, "back to work at another time");
    }
}

void Invariants::checkLeaving(const OverlayState& from, const OverlayState& to) {
    static const std::set<std::string, std::less<>> answers{"returnToWork", "beginEmergencyExit", "cancelEmergencyExit",
                                                            "confirmEmergencyExit", "dismiss"};
    const bool isAnswered = answers.contains(m_step.action) || controller().autoReturnFromWarnings;
    if (!m_session || isAnswered || from == to) return;
    require(!shows<Overlay::EmergencyExit>(from), Invariant::overlayMovesForAReason, "an exit was displaced");
    require(!shows<Overlay::Warning>(from) || m_isMovingOn, Invariant::overlayMovesForAReason,
            "a warning went by itself");
    require(!shows<Overlay::LockedBreak>(from) || m_isMovingOn, Invariant::overlayMovesForAReason,
            "a locked break went by itself");
}

void Invariants::checkOverlay() {
    const OverlayState& overlay = *controller().overlay();
    require(overlay == m_overlay, Invariant::overlayMovesForAReason, "the overlay changed and nobody was told");
    const bool needsSession = !shows<Overlay::None>(overlay) && !shows<Overlay::Finished>(overlay);
    require(controller().isActive() || !needsSession, Invariant::overlayHasItsSession, "a screen without its session");
}

void Invariants::sessionEnded(const SimulatedEvent&) {
    m_isEnding = true;
    m_ended = m_session;
    require(m_session.has_value(), Invariant::endsOnlyWhenDoneOrConfirmed, "an end without a session");
    if (!m_session) return;
    const auto* exit = std::get_if<Overlay::EmergencyExit>(&*controller().overlay());
    const bool isConfirmed = isStep("confirmEmergencyExit") && exit && exit->waitUntil <= now() &&
                             m_step.details.find("good reason") != std::string::npos;
    require(isConfirmed || m_session->isAllWorkDone(now()), Invariant::endsOnlyWhenDoneOrConfirmed,
            "neither done nor confirmed");
}

void Invariants::sessionChanged(const SimulatedEvent&) {
    if (!program() || controller().isActive()) return;
    require(m_isEnding && m_ended, Invariant::endsOnlyWhenDoneOrConfirmed, "the session is gone without an end");
    m_isEnding = false;
    if (!m_ended) return;
    const auto& history = *program()->data().history();
    require(!history.empty() && history.front().id == m_ended->id, Invariant::eachEndIsOneRecord, "no record");
    if (!history.empty()) checkRecord(history.front());
    checkShownAgain();
    m_hidden.clear();
    m_memory.session.reset();
    require(content(SessionController::sessionFile) == nullptr, Invariant::sessionFileWhileItRuns,
            "the file outlives the session");
}

void Invariants::checkRecord(const SessionRecord& record) {
    require(record.attempts == m_ended->attempts && record.returns == m_ended->returns &&
                record.intent == m_ended->intent && record.startedAt == m_ended->startedAt,
            Invariant::eachEndIsOneRecord, "the record says something else than the session");
    constexpr auto rule = Invariant::recordStaysWithinPlan;
    require(record.focusedSeconds >= 0 && record.focusedSeconds <= workOf(*m_ended) + hair, rule,
            "more focus than the plan has work");
    const bool isCompleted = record.outcome == SessionOutcome::completed;
    require(!isCompleted || record.endedAt <= m_ended->plannedEnd(), rule, "a completed session ends after its plan");
    require(isCompleted || record.endedAt == now(), rule, "an early end at another moment");
    require(isCompleted != record.exitReason.has_value(), Invariant::eachEndIsOneRecord, "a reason out of place");
}

void Invariants::checkIdle() {
    SessionController& engine = controller();
    const bool isActive = engine.isActive();
    constexpr auto rule = Invariant::idleHoldsNothing;
    require(engine.status()->has_value() == isActive, rule, "a status and no session, or the other way round");
    require(isActive ||
                (engine.deniedBrowsers().empty() && engine.terminateRetries().empty() && !engine.lastSegmentIndex()),
            rule, "something is left of the last session");
    const auto& job = m_scenario.scene()->desktop().serviceManager.job;
    require(job.has_value() == isActive && (!job || job->front() == "--watchdog"), Invariant::watchdogGuardsTheSession,
            "a job and no session, or the other way round");
}

void Invariants::checkStart() {
    if (!isStep("start") || !m_wasAlive) return;
    const auto& session = *controller().session();
    require(session.has_value(), Invariant::startStartsOnce, "it did not start");
    require(!m_sessionBefore || session == m_sessionBefore, Invariant::startStartsOnce, "a second start did something");
}

void Invariants::checkPhone() {
    PhoneLink& link = program()->data().phoneLink();
    constexpr auto rule = Invariant::phoneIsLockedForASession;
    require(*link.lockState() == LockState::idle || controller().isActive(), rule, "a lock without a session");
    require((*link.pairingState() == PairingState::notPaired) == !link.pairing(), rule, "paired with nobody");
    const auto stored = m_stored.find(PhoneLink::fileName);
    const bool isStale = stored != m_stored.end() && stored->second.isStale;
    require(isStale || (content(PhoneLink::fileName) != nullptr) == link.pairing().has_value(), rule, "the file");
}

} // namespace velmorin
