#pragma once

#include "app/platform/linux/services/WatchdogPlace.h"
#include "app/seams/ServiceManager.h"
#include "core/store/Files.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

class UserSystemd;

/// The watchdog as units of the user's service manager, systemd: a timer that runs the check, and what has both start
/// at the next login. The program itself is started as a unit of its own, so that nothing ends together with the check.
/// Main thread; blocks while the service manager is asked, for `patience` at most; an `install` that fails for
/// `patienceToUndo` more.
class SystemdServiceManager final : public ServiceManager {
public:
    /// Seconds. A session that is taken up locks only when its guard has been set up, and shall lock within 4 seconds.
    static constexpr double patience = 2;
    static constexpr double patienceToUndo = 1; ///< seconds

    /// `files` must outlive this.
    SystemdServiceManager(WatchdogPlace place, Files& files);

    void install(const std::vector<std::string>& launchArguments) override;
    void remove() override;

    /// `install`, telling whether the session is guarded now. Without a service manager that answers, nothing of the
    /// job is left.
    bool tryInstall(const std::vector<std::string>& launchArguments);

private:
    bool writeUnits(const std::vector<std::string>& launchArguments);
    void removeFiles();
    void remove(UserSystemd& systemd);
    std::filesystem::path unitFile(std::string_view unit) const;
    std::filesystem::path environmentFile() const;

    WatchdogPlace m_place;
    Files& m_files;
};

} // namespace velmorin
