#include "app/platform/linux/services/LinuxShortcuts.h"

#include "core/session/AppSettings.h"

#include <unistd.h>
#include <utility>

namespace velmorin {

LinuxShortcuts::LinuxShortcuts(std::filesystem::path folder, ChildProcesses& childProcesses)
    : m_folder{std::move(folder)}, m_childProcesses{childProcesses} {}

void LinuxShortcuts::run(const std::string& name) {
    static const AppSettings defaults;
    if (const auto executable = executableOf(name)) {
        m_childProcesses.start(*executable, {});
    } else if (name == defaults.focusOnShortcut) {
        m_doNotDisturb.turnOn();
    } else if (name == defaults.focusOffShortcut) {
        m_doNotDisturb.turnOff();
    }
}

std::optional<std::string> LinuxShortcuts::executableOf(const std::string& name) const {
    // A name is one file of the folder and nothing else.
    if (name.empty() || name.find('/') != std::string::npos || name.find('\0') != std::string::npos)
        return std::nullopt;
    const auto path = m_folder / name;
    std::error_code failure;
    const bool isRegular = std::filesystem::is_regular_file(path, failure);
    return isRegular && ::access(path.c_str(), X_OK) == 0 ? std::optional{path.string()} : std::nullopt;
}

} // namespace velmorin
