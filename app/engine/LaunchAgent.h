#pragma once

#include "app/seams/ChildProcesses.h"
#include "app/seams/ServiceManager.h"
#include "core/store/Files.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velmorin {

/// The watchdog as an agent of launchd: a property list in the user's home, taken up and put down by the system's
/// control tool, whose status nobody reads. Main thread; blocks while that tool runs.
class LaunchAgent final : public ServiceManager {
public:
    struct Place {
        std::string bundlePath;              ///< where the program stands; only a ".app" can be opened again
        std::filesystem::path homeDirectory; ///< of the user
        std::uint32_t userID = 0;
    };

    static constexpr const char* controlTool = "/bin/launchctl";

    /// The seams must outlive this.
    LaunchAgent(Place place, ChildProcesses& childProcesses, Files& files);

    /// Does nothing for a bare executable. An agent of an earlier run is taken out first, wherever it points.
    void install(const std::vector<std::string>& launchArguments) override;
    void remove() override;

    /// Where the property list lies.
    std::filesystem::path agentFile() const;

private:
    std::string domainTarget() const;
    std::string serviceTarget() const;
    void launchctl(const std::vector<std::string>& arguments);

    Place m_place;
    ChildProcesses& m_childProcesses;
    Files& m_files;
};

} // namespace velmorin
