#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the name of a process's control group tells of its application. Whoever may start a service for the user may
/// give it any such name. Pure; any thread.
namespace velmorin::ControlGroup {

/// A snap and the one of its commands that runs.
struct Snap {
    std::string name;
    std::string command;

    bool operator==(const Snap&) const = default;
};

/// The path of a process in the service manager's hierarchy, from the text of /proc/PID/cgroup; empty when it has none.
std::string path(std::string_view processFile);

/// From "snap.NAME.COMMAND-….scope".
std::optional<Snap> snap(std::string_view path);
/// From "app-flatpak-ID-….scope".
std::optional<std::string> flatpak(std::string_view path);
/// The ids that "app-LAUNCHER-ID-….scope" and its like may speak of, the likeliest first. Children inherit it.
std::vector<std::string> applications(std::string_view path);

} // namespace velmorin::ControlGroup
