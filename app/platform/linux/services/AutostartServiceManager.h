#pragma once

#include "app/platform/linux/services/WatchdogPlace.h"
#include "app/seams/ChildProcesses.h"
#include "app/seams/ServiceManager.h"
#include "core/store/Files.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// A text as one word of the command line in a desktop entry, whatever it holds but a zero byte.
std::string desktopEntryWord(std::string_view text);

/// The watchdog where no service manager runs for the user: a process in the background that keeps the program alive,
/// and an autostart entry that has it run at the next login. It lives exactly as long as the job file and the entry.
/// Main thread; blocks until the process has set itself up, or has gone.
class AutostartServiceManager final : public ServiceManager {
public:
    /// The seams must outlive this.
    AutostartServiceManager(WatchdogPlace place, ChildProcesses& childProcesses, Files& files);

    void install(const std::vector<std::string>& launchArguments) override;
    void remove() override;

    std::filesystem::path jobFile() const;
    std::filesystem::path entryFile() const;

private:
    bool writeFiles(const std::vector<std::string>& launchArguments);
    std::vector<std::string> keeper() const;

    WatchdogPlace m_place;
    ChildProcesses& m_childProcesses;
    Files& m_files;
};

} // namespace velmorin
