#pragma once

#include "core/foundation/Date.h"
#include "core/foundation/Fields.h"
#include "core/foundation/UUID.h"
#include "core/session/ActiveSession.h"
#include "core/session/SessionMode.h"
#include "core/session/SessionOutcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// What is left of a session once it is over: one entry of the history. What it counts for is decided when it is made
/// and never computed again.
struct SessionRecord {
    UUID id;
    std::string profileName;
    SessionMode mode = SessionMode::pomodoro;
    std::string intent;
    Date startedAt;
    Date endedAt;
    double focusedSeconds = 0;                   ///< credited focus time
    std::optional<std::int64_t> completedRounds; ///< work blocks credited; absent for a deep session
    std::int64_t attempts = 0;
    std::int64_t returns = 0;
    SessionOutcome outcome = SessionOutcome::completed;
    std::optional<std::string> exitReason; ///< what the user wrote on leaving early

    SessionRecord() = default;
    /// Credits a session. A deep one counts to the second, whatever its outcome. A pomodoro one counts whole work
    /// blocks: all of the plan when completed, those that had run to their end when aborted.
    SessionRecord(const ActiveSession& session, Date end, SessionOutcome how, std::optional<std::string> reason);

    bool operator==(const SessionRecord&) const = default;
};

constexpr auto fields(std::type_identity<SessionRecord>) {
    return std::tuple{
        field("id", &SessionRecord::id),
        field("profileName", &SessionRecord::profileName),
        field("mode", &SessionRecord::mode),
        field("intent", &SessionRecord::intent),
        field("startedAt", &SessionRecord::startedAt),
        field("endedAt", &SessionRecord::endedAt),
        field("focusedSeconds", &SessionRecord::focusedSeconds),
        field("completedRounds", &SessionRecord::completedRounds),
        field("attempts", &SessionRecord::attempts),
        field("returns", &SessionRecord::returns),
        field("outcome", &SessionRecord::outcome),
        field("exitReason", &SessionRecord::exitReason),
    };
}

} // namespace velmorin
