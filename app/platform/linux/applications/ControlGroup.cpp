#include "app/platform/linux/applications/ControlGroup.h"

#include <algorithm>
#include <cstddef>

namespace velmorin::ControlGroup {

namespace {

constexpr std::string_view scopeSuffix = ".scope";
constexpr std::string_view serviceSuffix = ".service";

std::optional<unsigned> hexDigit(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
    return std::nullopt;
}

/// Unit names write what would part them as \xHH.
std::string unescaped(std::string_view text) {
    constexpr std::size_t length = 4; // of \xHH
    std::string result;
    while (!text.empty()) {
        const bool isEscape = text.size() >= length && text.starts_with("\\x");
        const auto high = isEscape ? hexDigit(text[2]) : std::nullopt;
        const auto low = isEscape ? hexDigit(text[3]) : std::nullopt;
        const bool isWhole = high.has_value() && low.has_value();
        result += isWhole ? static_cast<char>(*high * 16 + *low) : text.front();
        text.remove_prefix(isWhole ? length : 1);
    }
    return result;
}

/// The innermost group on the path whose name begins so, without that beginning and without the kind of unit, which
/// must be a scope or a service. Absent when there is none.
struct Unit {
    std::string_view name;
    bool isService = false;
};
std::optional<Unit> innermost(std::string_view path, std::string_view prefix) {
    while (!path.empty()) {
        const auto slash = path.rfind('/');
        auto name = slash == std::string_view::npos ? path : path.substr(slash + 1);
        path = slash == std::string_view::npos ? std::string_view{} : path.substr(0, slash);
        if (!name.starts_with(prefix)) continue;
        name.remove_prefix(prefix.size());
        const bool isService = name.ends_with(serviceSuffix);
        if (!isService && !name.ends_with(scopeSuffix)) continue;
        name.remove_suffix(isService ? serviceSuffix.size() : scopeSuffix.size());
        return Unit{name, isService};
    }
    return std::nullopt;
}

/// The name without what makes it different from that of a second instance.
std::string_view withoutInstance(const Unit& unit) {
    const auto end = unit.isService ? unit.name.find('@') : unit.name.rfind('-');
    return end == std::string_view::npos && !unit.isService ? std::string_view{} : unit.name.substr(0, end);
}

} // namespace

std::string path(std::string_view processFile) {
    std::string_view unified;
    std::string_view named;
    while (!processFile.empty()) {
        const auto end = std::min(processFile.find('\n'), processFile.size());
        const auto line = processFile.substr(0, end);
        processFile.remove_prefix(std::min(end + 1, processFile.size()));
        if (line.starts_with("0::")) unified = line.substr(3);
        constexpr std::string_view mark = ":name=systemd:";
        if (const auto found = line.find(mark); found != std::string_view::npos)
            named = line.substr(found + mark.size());
    }
    const bool isNamedBetter = !named.empty() && (unified.empty() || unified == "/");
    return std::string{isNamedBetter ? named : unified};
}

std::optional<Snap> snap(std::string_view path) {
    const auto unit = innermost(path, "snap.");
    if (!unit) return std::nullopt;
    const auto dot = unit->name.find('.');
    if (dot == std::string_view::npos || dot == 0) return std::nullopt;
    auto command = unit->name.substr(dot + 1);
    // Behind the command stands a UUID, with a hyphen or, in older ones, a dot before it.
    constexpr std::size_t uuid = 36;
    if (!unit->isService && command.size() > uuid + 1) command = command.substr(0, command.size() - uuid - 1);
    if (command.empty()) return std::nullopt;
    return Snap{unescaped(unit->name.substr(0, dot)), unescaped(command)};
}

std::optional<std::string> flatpak(std::string_view path) {
    const auto unit = innermost(path, "app-flatpak-");
    if (!unit) return std::nullopt;
    const auto id = unescaped(withoutInstance(*unit));
    return id.empty() ? std::nullopt : std::optional{id};
}

std::vector<std::string> applications(std::string_view path) {
    const auto unit = innermost(path, "app-");
    std::vector<std::string> ids;
    if (!unit) return ids;
    // The launcher is there or not; and not every one escapes the hyphens of the id.
    auto rest = withoutInstance(*unit);
    const bool hasLauncher = rest.find('-') != std::string_view::npos;
    if (hasLauncher) ids.push_back(unescaped(rest.substr(rest.find('-') + 1)));
    if (!rest.empty()) ids.push_back(unescaped(rest));
    return ids;
}

} // namespace velmorin::ControlGroup
