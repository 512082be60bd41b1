// The session controller's answers to the overlay's buttons: going back to work, and the way out.

#include "app/engine/SessionController.h"
#include "core/foundation/Text.h"
#include "core/rules/Friction.h"

#include <utility>

namespace velmorin {

namespace {

constexpr double suppressionAfterReturn = 2.0; // seconds

} // namespace

void SessionController::returnToWork() {
    inTurn([this] { goBackToWork(); });
}

void SessionController::beginEmergencyExit() {
    inTurn([this] { openExit(); });
}

void SessionController::cancelEmergencyExit() {
    inTurn([this] { closeExit(); });
}

void SessionController::confirmEmergencyExit(std::string_view reason) {
    inTurn([this, text = std::string{reason}] { leave(text); });
}

void SessionController::goBackToWork() {
    // The only place where returns are counted: warnings that the user walked away from.
    if (shows<Overlay::Warning>(*m_overlay) && isActive()) {
        ActiveSession session = **m_session;
        const std::int64_t returns = ++session.returns;
        assignAndSave(std::move(session));
        m_data.log("returned " + std::to_string(returns));
    }
    m_suppressAttemptsUntil = m_seams.clock.now() + suppressionAfterReturn;
    assignOverlay(Overlay::None{});
    if (isActive()) focusAllowedApp();
}

void SessionController::openExit() {
    if (!isActive()) return;
    const Date now = m_seams.clock.now();
    if ((*m_session)->isAllWorkDone(now)) {
        finish(SessionOutcome::completed, std::nullopt, Summary::shown);
        return;
    }
    m_data.log("emergency exit opened");
    assignOverlay(Overlay::EmergencyExit{now + exitWaitOverride.value_or((*m_session)->exitWaitSeconds())});
}

void SessionController::closeExit() {
    m_data.log("emergency exit cancelled");
    // The plan may have moved on under the exit.
    if (*m_status && (*m_status)->kind == SegmentKind::lockedBreak) {
        assignOverlay(Overlay::LockedBreak{});
    } else {
        goBackToWork();
    }
}

void SessionController::leave(std::string_view reason) {
    const auto* exit = std::get_if<Overlay::EmergencyExit>(&*m_overlay);
    if (exit && Friction::canConfirmExit(reason, exit->waitUntil, m_seams.clock.now())) {
        finish(SessionOutcome::aborted, std::string{trimmed(reason)}, Summary::skipped);
    } else {
        m_data.log("exit refused");
    }
}

} // namespace velmorin
