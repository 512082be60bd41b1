#include "app/platform/linux/services/watchdog/ProcessLookup.h"

#include "core/store/Descriptor.h"

#include <array>
#include <cctype>
#include <charconv>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string>

namespace velmorin {

namespace {

/// The beginning of a file below an open folder, which holds all that is asked for here.
std::string beginningOf(int folder, const std::string& path) {
    const Descriptor file{uninterrupted([&] { return ::openat(folder, path.c_str(), O_RDONLY | O_CLOEXEC); })};
    std::array<char, 1024> bytes{};
    const auto count =
        file.isOpen() ? uninterrupted([&] { return ::read(file.number(), bytes.data(), bytes.size()); }) : 0;
    return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

/// Whether the line of a process, "PID (NAME) STATE …", tells of a living one of this name. The name may hold
/// anything, also parentheses.
bool isAliveAs(std::string_view name, std::string_view line) {
    const auto begin = line.find('(');
    const auto end = line.rfind(") ");
    if (begin == std::string_view::npos || end == std::string_view::npos || end + 2 >= line.size()) return false;
    constexpr std::string_view ended = "ZXx";
    return line.substr(begin + 1, end - begin - 1) == name && ended.find(line[end + 2]) == std::string_view::npos;
}

std::optional<uid_t> userOf(std::string_view status) {
    constexpr std::string_view key = "\nUid:\t";
    const auto found = status.find(key);
    if (found == std::string_view::npos) return std::nullopt;
    const auto number = status.substr(found + key.size());
    uid_t user = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), user);
    return read.ec == std::errc{} ? std::optional{user} : std::nullopt;
}

} // namespace

bool isProcessAlive(std::string_view name, uid_t user) {
    const std::unique_ptr<DIR, int (*)(DIR*)> processes{::opendir("/proc"), ::closedir};
    if (!processes) return false;
    const auto kept = name.substr(0, longestProcessName);
    const std::string nameLine = std::string{kept} + '\n';
    const int folder = ::dirfd(processes.get());
    // Only this thread reads this stream.
    while (const dirent* entry = ::readdir(processes.get())) { // NOLINT(concurrency-mt-unsafe)
        const std::string process = entry->d_name;
        if (std::isdigit(static_cast<unsigned char>(process.front())) == 0) continue;
        // Its name alone is told much sooner than its state, and most have another.
        if (beginningOf(folder, process + "/comm") != nameLine) continue;
        if (!isAliveAs(kept, beginningOf(folder, process + "/stat"))) continue;
        if (userOf(beginningOf(folder, process + "/status")) == user) return true;
    }
    return false;
}

} // namespace velmorin
