#pragma once

#include <filesystem>
#include <string>

namespace velmorin {

/// What the watchdog of a Linux session works with. All paths are absolute.
struct WatchdogPlace {
    /// The name of the program's processes, of which the system keeps 15 bytes.
    std::string processName = "Velmorin";
    std::filesystem::path program;          ///< the executable to start
    std::filesystem::path checker;          ///< `velmorin-watchdog`, which looks for the process
    std::filesystem::path configDirectory;  ///< $XDG_CONFIG_HOME, or what stands for it
    std::filesystem::path runtimeDirectory; ///< $XDG_RUNTIME_DIR; empty where there is none
};

} // namespace velmorin
