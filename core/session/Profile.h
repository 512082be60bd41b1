#pragma once

#include "core/foundation/Fields.h"
#include "core/foundation/UUID.h"
#include "core/session/AllowedApp.h"
#include "core/session/DeepConfig.h"
#include "core/session/PomodoroConfig.h"
#include "core/session/Segment.h"
#include "core/session/SessionMode.h"

#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace velmorin {

/// What the user prepares for one kind of work: what stays reachable, and how the time is cut.
struct Profile {
    UUID id;
    std::string name;
    std::vector<AllowedApp> allowedApps;
    std::vector<std::string> allowedDomains; ///< as the user typed them
    SessionMode mode = SessionMode::pomodoro;
    PomodoroConfig pomodoro; ///< kept also while the mode is deep, so that switching back loses nothing
    DeepConfig deep;         ///< kept also while the mode is pomodoro

    Profile() = default;
    /// A new profile with nothing allowed and the default timings.
    Profile(std::string profileName, SessionMode sessionMode, UUID freshID = UUID::random());

    /// The plan of the selected mode.
    std::vector<Segment> segments() const;

    /// Whether the timings of both modes are the defaults.
    bool hasDefaultTimings() const;

    /// Sets the timings of both modes back to the defaults, and nothing else.
    void resetTimings();

    bool operator==(const Profile&) const = default;
};

constexpr auto fields(std::type_identity<Profile>) {
    return std::tuple{
        field("id", &Profile::id),
        field("name", &Profile::name),
        field("allowedApps", &Profile::allowedApps),
        field("allowedDomains", &Profile::allowedDomains),
        field("mode", &Profile::mode),
        field("pomodoro", &Profile::pomodoro),
        field("deep", &Profile::deep),
    };
}

} // namespace velmorin
