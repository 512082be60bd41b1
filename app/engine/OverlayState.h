#pragma once

#include "core/foundation/Date.h"
#include "core/session/SessionRecord.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace velmorin {

/// What a counted attempt to leave says to the user.
struct WarningInfo {
    std::string target;       ///< what the user tried to reach: an application's name or a site's
    std::int64_t attempt = 0; ///< which one of the session this is, from 1
    Date startedAt;
    Date pauseEndsAt; ///< only from this moment on the screen offers the way back

    bool operator==(const WarningInfo&) const = default;
};

/// The screens that can cover everything.
namespace Overlay {

/// An attempt to leave was counted; the user waits and goes back.
struct Warning {
    WarningInfo info;
    bool operator==(const Warning&) const = default;
};

/// The user wants to end early. The form for the reason is up.
struct EmergencyExit {
    Date waitUntil; ///< it cannot be confirmed before
    bool operator==(const EmergencyExit&) const = default;
};

/// The session is over; its summary is up.
struct Finished {
    SessionRecord record;
    bool operator==(const Finished&) const = default;
};

/// No screen is up.
struct None {
    bool operator==(const None&) const = default;
};

/// A rest with the machine still locked.
struct LockedBreak {
    bool operator==(const LockedBreak&) const = default;
};

/// An open break has ended; work starts when the user says so.
struct BackToWork {
    bool operator==(const BackToWork&) const = default;
};

} // namespace Overlay

/// What the full-screen overlay shows.
using OverlayState = std::variant<Overlay::Warning, Overlay::EmergencyExit, Overlay::Finished, Overlay::None,
                                  Overlay::LockedBreak, Overlay::BackToWork>;

/// Whether the overlay shows this screen.
template <class Screen>
constexpr bool shows(const OverlayState& state) {
    return std::holds_alternative<Screen>(state);
}

/// The name of a state, as in "emergencyExit".
constexpr std::string_view name(const OverlayState& state) {
    constexpr std::string_view names[]{"warning", "emergencyExit", "finished", "none", "lockedBreak", "backToWork"};
    return names[state.index()];
}

} // namespace velmorin
