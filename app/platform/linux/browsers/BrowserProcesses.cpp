#include "app/platform/linux/browsers/BrowserProcesses.h"

#include "app/platform/linux/browsers/FolderEntries.h"
#include "app/platform/linux/browsers/Numbers.h"
#include "core/store/Descriptor.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace velmorin {

namespace {

constexpr const char* processes = "/proc";

std::string pathOf(pid_t process, std::string_view file) {
    return std::string{processes} + '/' + std::to_string(process) + '/' + std::string{file};
}

std::string contentOf(const std::string& path) {
    std::string content;
    const Descriptor file{uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); })};
    std::array<char, 4096> piece{};
    while (file.isOpen()) {
        const auto count = uninterrupted([&] { return ::read(file.number(), piece.data(), piece.size()); });
        if (count <= 0) break;
        content.append(piece.data(), static_cast<std::size_t>(count));
    }
    return content;
}

/// Empty where this user may not know.
std::string executableOf(pid_t process) {
    std::array<char, 4096> path{};
    const auto length = ::readlink(pathOf(process, "exe").c_str(), path.data(), path.size());
    return {path.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

double uptime() {
    timespec time{};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

bool isOfThisUser(pid_t process) {
    struct stat status {};
    return ::stat(pathOf(process, "").c_str(), &status) == 0 && status.st_uid == ::geteuid();
}

std::vector<pid_t> allProcesses() {
    std::vector<pid_t> found;
    forEachEntry(processes, [&](std::string_view name) {
        if (const auto process = parseNumber<pid_t>(name)) found.push_back(*process);
    });
    return found;
}

std::string_view takeUntil(std::string_view& text, char end) {
    const auto length = std::min(text.find(end), text.size());
    const auto piece = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return piece;
}

/// What a browser calls a switch, with one dash or two; empty for any other argument.
std::string_view switchOf(std::string_view argument) {
    if (!argument.starts_with('-')) return {};
    argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
    return argument;
}

bool hasNoWindows(std::string_view switchText) {
    return switchText == "headless" || switchText.starts_with("headless=");
}

} // namespace

std::optional<ProcessStatus> parseProcessStatus(std::string_view text, double uptime, double ticks) {
    // The name in parentheses may hold anything, parentheses and spaces included.
    const auto name = text.rfind(") ");
    if (name == std::string_view::npos) return std::nullopt;
    text.remove_prefix(name + 2);
    constexpr std::size_t parentPlace = 1;
    constexpr std::size_t startPlace = 19;
    std::array<std::string_view, startPlace + 1> values;
    for (auto& value : values)
        value = takeUntil(text, ' ');
    const auto parent = parseNumber<pid_t>(values[parentPlace]);
    const auto start = parseNumber<std::int64_t>(values[startPlace]);
    const auto state = values[0];
    if (!parent || !start || state == "Z" || state == "X") return std::nullopt;
    return ProcessStatus{state == "T" || state == "t", *parent, uptime - static_cast<double>(*start) / ticks};
}

std::optional<ProcessStatus> processStatus(pid_t process) {
    static const auto ticks = static_cast<double>(::sysconf(_SC_CLK_TCK));
    return parseProcessStatus(contentOf(pathOf(process, "stat")), uptime(), ticks);
}

const KnownBrowser* browserOfProcess(pid_t process) {
    return browserOfExecutable(executableOf(process));
}

bool mayBelongTo(const KnownBrowser& browser, pid_t process) {
    const auto executable = executableOf(process);
    return executable.empty() || browserOfExecutable(executable) == &browser;
}

std::vector<BrowserProcess> runningBrowsers(const KnownBrowser& browser) {
    std::vector<BrowserProcess> found;
    for (const auto process : allProcesses()) {
        if (browserOfProcess(process) != &browser || !isOfThisUser(process)) continue;
        if (!isMainProcess(contentOf(pathOf(process, "cmdline")))) continue;
        if (const auto status = processStatus(process)) found.push_back({process, status->age});
    }
    std::ranges::sort(found, {}, &BrowserProcess::id);
    return found;
}

bool isMainProcess(std::string_view commandLine) {
    while (commandLine.ends_with('\0'))
        commandLine.remove_suffix(1);
    // A process that has changed its own command line shows it as one text.
    const char end = commandLine.find('\0') != std::string_view::npos ? '\0' : ' ';
    (void)takeUntil(commandLine, end);
    if (commandLine.starts_with("-contentproc")) return false;
    std::string_view type; // of several, the last one counts
    while (!commandLine.empty()) {
        const auto argument = takeUntil(commandLine, end);
        if (argument == "--") break; // what follows are addresses, whatever they look like
        const auto text = switchOf(argument);
        if (hasNoWindows(text)) return false;
        if (text.starts_with("type=")) type = text.substr(text.find('=') + 1);
    }
    return type.empty();
}

std::vector<pid_t> stoppedDescendants(pid_t ancestor) {
    std::map<pid_t, ProcessStatus> all;
    for (const auto process : allProcesses()) {
        if (const auto status = processStatus(process)) all.emplace(process, *status);
    }
    const auto descends = [&](pid_t process) {
        for (auto found = all.find(process); found != all.end(); found = all.find(found->second.parent)) {
            if (found->second.parent == ancestor) return true;
        }
        return false;
    };
    std::vector<pid_t> stopped;
    for (const auto& [process, status] : all) {
        if (status.isStopped && descends(process)) stopped.push_back(process);
    }
    return stopped;
}

} // namespace velmorin
