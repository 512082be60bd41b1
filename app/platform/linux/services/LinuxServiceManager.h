#pragma once

#include "app/platform/linux/services/AutostartServiceManager.h"
#include "app/platform/linux/services/SystemdServiceManager.h"
#include "app/platform/linux/services/WatchdogPlace.h"
#include "app/seams/ChildProcesses.h"
#include "app/seams/ServiceManager.h"
#include "core/store/Files.h"

#include <string>
#include <vector>

namespace velmorin {

/// The watchdog of a Linux session: units of the user's service manager where one answers, else a process in the
/// background with an autostart entry. Which one is decided at each `install`; never both. Main thread; blocks.
class LinuxServiceManager final : public ServiceManager {
public:
    /// The seams must outlive this.
    LinuxServiceManager(const WatchdogPlace& place, ChildProcesses& childProcesses, Files& files)
        : m_systemd{place, files}, m_autostart{place, childProcesses, files} {}

    void install(const std::vector<std::string>& launchArguments) override {
        if (m_systemd.tryInstall(launchArguments)) {
            m_autostart.remove();
        } else {
            m_autostart.install(launchArguments);
        }
    }
    void remove() override {
        m_systemd.remove();
        m_autostart.remove();
    }

private:
    SystemdServiceManager m_systemd;
    AutostartServiceManager m_autostart;
};

} // namespace velmorin
