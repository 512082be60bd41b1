#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace velmorin {

/// How this process was started.
struct LaunchOptions {
    bool launchedByWatchdog = false;
    /// The directory for the store in place of the default one; no argument sets it.
    std::optional<std::filesystem::path> homeDirectory;

    /// Reads the arguments of a command line. Only the watchdog's own, spelt exactly so, means anything.
    static LaunchOptions parse(std::span<const std::string> arguments);

    bool operator==(const LaunchOptions&) const = default;
};

} // namespace velmorin
