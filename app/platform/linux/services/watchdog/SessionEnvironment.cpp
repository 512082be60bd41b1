#include "app/platform/linux/services/watchdog/SessionEnvironment.h"

#include "core/store/Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace velmorin {

namespace {

/// What one display server tells those who use it: taken together or not at all.
constexpr std::array<std::string_view, 10> ofDisplay{
    "DISPLAY",        "WAYLAND_DISPLAY",  "XAUTHORITY", "XDG_CURRENT_DESKTOP", "XDG_SESSION_DESKTOP", "XDG_SEAT",
    "XDG_SESSION_ID", "XDG_SESSION_TYPE", "XDG_VTNR",   "DESKTOP_SESSION",
};

constexpr std::string_view sessionBus = "DBUS_SESSION_BUS_ADDRESS";

bool belongsToDisplay(std::string_view name) {
    return std::ranges::find(ofDisplay, name) != ofDisplay.end();
}

/// Where the program keeps its things: that of the session which is guarded, whoever starts it again.
bool isPlace(std::string_view name) {
    return name == "XDG_DATA_HOME" || name == "XDG_CONFIG_HOME";
}

bool belongsToSession(std::string_view name) {
    constexpr std::array<std::string_view, 3> others{sessionBus, "LANG", "LANGUAGE"};
    return belongsToDisplay(name) || std::ranges::find(others, name) != others.end() || name.starts_with("XDG_") ||
           name.starts_with("LC_");
}

std::string valueOf(const Environment& environment, const std::string& name) {
    const auto found = environment.find(name);
    return found == environment.end() ? std::string{} : found->second;
}

/// Whether someone listens on a socket; `path` begins with a zero byte where it is no file.
bool isListenedTo(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    const bool isAbstract = path.starts_with('\0');
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() + (isAbstract ? 0 : 1));
    const Descriptor socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)};
    if (!socket.isOpen()) return false;
    const auto* generic = static_cast<const sockaddr*>(static_cast<const void*>(&address));
    // A server that has many at its door is there all the same.
    return ::connect(socket.number(), generic, length) == 0 || errno == EAGAIN;
}

bool canReachX(const std::string& display) {
    const auto colon = display.rfind(':');
    if (colon == std::string::npos) return false;
    const std::string host = display.substr(0, colon);
    if (!host.empty() && host != "unix") return true;
    const auto number = display.substr(colon + 1, display.find('.', colon) - colon - 1);
    const std::string path = "/tmp/.X11-unix/X" + number;
    return isListenedTo(path) || isListenedTo(std::string(1, '\0') + path);
}

bool canReachWayland(const std::string& display, const std::string& runtimeDirectory) {
    if (display.empty()) return false;
    if (display.starts_with('/')) return isListenedTo(display);
    return !runtimeDirectory.empty() && isListenedTo(runtimeDirectory + "/" + display);
}

} // namespace

Environment ownEnvironment() {
    Environment environment;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        const std::string_view text = *variable;
        if (const auto end = text.find('='); end != std::string_view::npos)
            environment.emplace(text.substr(0, end), text.substr(end + 1));
    }
    return environment;
}

Environment sessionPart(const Environment& environment) {
    Environment part;
    std::ranges::copy_if(environment, std::inserter(part, part.end()),
                         [](const auto& variable) { return belongsToSession(variable.first); });
    return part;
}

std::string written(const Environment& environment) {
    std::string text;
    for (const auto& [name, value] : environment)
        text.append(name).append("=").append(value).append(1, '\0');
    return text;
}

Environment readEnvironment(std::string_view text) {
    Environment environment;
    while (!text.empty()) {
        const auto variable = text.substr(0, text.find('\0'));
        text.remove_prefix(std::min(text.size(), variable.size() + 1));
        const auto end = variable.find('=');
        if (end != std::string_view::npos && end > 0)
            environment.emplace(variable.substr(0, end), variable.substr(end + 1));
    }
    return environment;
}

bool canReachDisplay(const Environment& environment) {
    return canReachX(valueOf(environment, "DISPLAY")) ||
           canReachWayland(valueOf(environment, "WAYLAND_DISPLAY"), valueOf(environment, "XDG_RUNTIME_DIR"));
}

std::optional<EnvironmentChanges> changesForSession(const Environment& own, const Environment& saved,
                                                    const std::function<bool(const Environment&)>& canReach) {
    const bool isOwn = canReach(own);
    if (!isOwn && !canReach(saved)) return std::nullopt;
    EnvironmentChanges changes;
    for (const auto& [name, value] : saved) {
        // A service manager has a bus of its own, which need not be that of the session.
        const bool isReplaced = isPlace(name) || (!isOwn && (belongsToDisplay(name) || name == sessionBus));
        const bool isFilledIn = !belongsToDisplay(name) && !own.contains(name);
        if (isReplaced || isFilledIn) changes.set.emplace(name, value);
    }
    for (const auto& [name, value] : own) {
        const bool isForeign = isPlace(name) ? !saved.empty() : !isOwn && belongsToDisplay(name);
        if (isForeign && !saved.contains(name)) changes.unset.push_back(name);
    }
    return changes;
}

} // namespace velmorin
