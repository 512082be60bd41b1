#pragma once

#include "app/platform/linux/services/DoNotDisturb.h"
#include "app/seams/ChildProcesses.h"
#include "app/seams/Shortcuts.h"

#include <filesystem>
#include <optional>
#include <string>

namespace velmorin {

/// A shortcut named N is the executable N in a folder of the user's. Where that is missing, the two names that the
/// settings begin with turn the desktop's own Do Not Disturb on and off. Main thread.
class LinuxShortcuts final : public Shortcuts {
public:
    /// `childProcesses` must outlive this.
    LinuxShortcuts(std::filesystem::path folder, ChildProcesses& childProcesses);

    void run(const std::string& name) override;

private:
    std::optional<std::string> executableOf(const std::string& name) const;

    std::filesystem::path m_folder;
    ChildProcesses& m_childProcesses;
    DoNotDisturb m_doNotDisturb;
};

} // namespace velmorin
