#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Environment variables by their names.
using Environment = std::map<std::string, std::string>;

/// The environment of this process.
Environment ownEnvironment();

/// What of an environment a program needs to find the display, the buses and the folders of the user's session.
Environment sessionPart(const Environment& environment);

/// As NAME=value, each with a zero byte behind it; and back. What is no variable is left out.
std::string written(const Environment& environment);
Environment readEnvironment(std::string_view text);

/// Whether a display server answers where the environment says that there is one. One on another machine is taken at
/// its word. Returns at once.
bool canReachDisplay(const Environment& environment);

/// What must change in an environment for a program to start in it.
struct EnvironmentChanges {
    Environment set;
    std::vector<std::string> unset;
    bool operator==(const EnvironmentChanges&) const = default;
};

/// How the environment `own` becomes that of the user's graphical session, of which `saved` was kept earlier. As long
/// as `own` names a display that can be reached it is the session's own, and nothing in it is replaced but the folders
/// in which the program keeps its things; only what it lacks is filled in. Else the saved display is taken with all
/// that belongs to it. Absent when neither can be reached: there is no session to start a program in.
std::optional<EnvironmentChanges> changesForSession(const Environment& own, const Environment& saved,
                                                    const std::function<bool(const Environment&)>& canReach);

} // namespace velmorin
