#pragma once

#include "core/foundation/Date.h"
#include "core/foundation/Fields.h"
#include "core/foundation/UUID.h"
#include "core/session/ScheduleStatus.h"
#include "core/session/Segment.h"
#include "core/session/SessionMode.h"

#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace velmorin {

/// A running session: a frozen copy of what its profile said at the start, and the counters that grow. Only
/// `attempts`, `returns` and `hiddenBundleIDs` change after it was made.
struct ActiveSession {
    UUID id; ///< the record of the session keeps it
    std::string profileName;
    SessionMode mode = SessionMode::pomodoro;
    std::string intent; ///< what the user said this session is for; may be empty
    Date startedAt;
    std::vector<Segment> segments; ///< the whole plan
    std::vector<std::string> allowedBundleIDs;
    std::vector<std::string> allowedDomains;
    std::int64_t attempts = 0;                ///< to leave what is allowed
    std::int64_t returns = 0;                 ///< to work
    std::vector<std::string> hiddenBundleIDs; ///< hidden by this program, to be shown again at the end

    ActiveSession() = default;
    ActiveSession(std::string nameOfProfile, SessionMode sessionMode, std::string statedIntent, Date start,
                  std::vector<Segment> plan, std::vector<std::string> bundleIDs, std::vector<std::string> domains,
                  UUID freshID = UUID::random());

    /// The position in the plan.
    ScheduleStatus status(Date at) const;

    /// The moment at which the plan runs out.
    Date plannedEnd() const;

    /// Seconds that leaving early costs.
    double exitWaitSeconds() const;

    /// Whether no work is left: the plan has run out, or has only break time to go.
    bool isAllWorkDone(Date at) const;

    /// The share of the plan that is still to come, from 0 to 1; 0 for a plan without any time.
    double remainingFraction(Date at) const;

    bool operator==(const ActiveSession&) const = default;
};

constexpr auto fields(std::type_identity<ActiveSession>) {
    return std::tuple{
        field("id", &ActiveSession::id),
        field("profileName", &ActiveSession::profileName),
        field("mode", &ActiveSession::mode),
        field("intent", &ActiveSession::intent),
        field("startedAt", &ActiveSession::startedAt),
        field("segments", &ActiveSession::segments),
        field("allowedBundleIDs", &ActiveSession::allowedBundleIDs),
        field("allowedDomains", &ActiveSession::allowedDomains),
        field("attempts", &ActiveSession::attempts),
        field("returns", &ActiveSession::returns),
        field("hiddenBundleIDs", &ActiveSession::hiddenBundleIDs),
    };
}

} // namespace velmorin
