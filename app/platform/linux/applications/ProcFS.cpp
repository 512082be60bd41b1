#include "app/platform/linux/applications/ProcFS.h"

#include "app/platform/linux/applications/CommandLine.h"
#include "app/platform/linux/applications/ControlGroup.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <system_error>

namespace velmorin {

namespace {

namespace fs = std::filesystem;

/// A file's text, empty when it cannot be read. Files below /proc have no size beforehand.
std::string text(const fs::path& path) {
    std::error_code unreadable;
    if (!fs::is_regular_file(path, unreadable)) return {}; // a pipe in a sandbox would keep us waiting
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

template <class Number>
Number number(std::string_view digits) {
    Number result = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), result);
    return result;
}

/// The n-th word (from 0) behind the name in /proc/PID/stat, which stands in parentheses and may hold anything.
std::string_view statWord(std::string_view stat, int n) {
    const auto name = stat.rfind(')');
    if (name == std::string_view::npos) return {};
    stat.remove_prefix(name + 1);
    for (;; --n) {
        stat.remove_prefix(std::min(stat.find_first_not_of(' '), stat.size()));
        const auto end = std::min(stat.find(' '), stat.size());
        if (n == 0 || stat.empty()) return stat.substr(0, end);
        stat.remove_prefix(end);
    }
}

std::string_view valueBehind(std::string_view text, std::string_view key) {
    const auto found = text.find(key);
    if (found == std::string_view::npos) return {};
    text.remove_prefix(found + key.size());
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text.substr(0, text.find_first_of(" \t\n"));
}

CommandLine::Arguments arguments(std::string_view commandLine) {
    CommandLine::Arguments result;
    while (!commandLine.empty()) {
        const auto end = std::min(commandLine.find('\0'), commandLine.size());
        result.emplace_back(commandLine.substr(0, end));
        commandLine.remove_prefix(std::min(end + 1, commandLine.size()));
    }
    return result;
}

/// Whether a file is one that this user could not have put there. To the administrator all files count as the system's.
bool isKeptFrom(std::uint32_t user, const fs::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return false;
    return (status.st_mode & S_IWOTH) == 0 && (user == 0 || status.st_uid != user);
}

/// The executable, without the note that an upgrade has replaced it since.
std::string executable(const fs::path& link) {
    std::error_code unreadable;
    std::string path = fs::read_symlink(link, unreadable).string();
    constexpr std::string_view deleted = " (deleted)";
    if (path.ends_with(deleted)) path.resize(path.size() - deleted.size());
    return path;
}

void readProgram(const fs::path& folder, ProcessFacts& facts) {
    const auto path = executable(folder / "exe");
    if (!CommandLine::isRuntime(CommandLine::fileName(path))) {
        facts.program = path;
        facts.isOfSystem = isKeptFrom(facts.userID, folder / "exe");
        return;
    }
    auto words = arguments(text(folder / "cmdline"));
    if (!words.empty()) words.front() = path;
    const auto script = CommandLine::program(words);
    std::error_code missing;
    const auto resolved = script.starts_with('/') ? fs::canonical(script, missing) : fs::path{};
    if (resolved.empty()) return;
    facts.program = resolved.string();
    facts.isScript = true;
    facts.isOfSystem = isKeptFrom(facts.userID, resolved);
}

} // namespace

std::optional<ProcessFacts> ProcFS::facts(std::int32_t processID) const {
    const auto folder = m_root / std::to_string(processID);
    const auto stat = text(folder / "stat");
    if (stat.empty()) return std::nullopt;
    ProcessFacts facts;
    facts.startTime = number<std::uint64_t>(statWord(stat, 19));
    facts.userID = number<std::uint32_t>(valueBehind(text(folder / "status"), "\nUid:"));
    facts.shortName = text(folder / "comm");
    if (facts.shortName.ends_with('\n')) facts.shortName.pop_back();
    facts.controlGroup = ControlGroup::path(text(folder / "cgroup"));
    const auto sandbox = text(folder / "root" / ".flatpak-info");
    if (const auto id = valueBehind(sandbox, "\nname="); !id.empty()) facts.flatpakID = std::string{id};
    readProgram(folder, facts);
    return facts;
}

} // namespace velmorin
