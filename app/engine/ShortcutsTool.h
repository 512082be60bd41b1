#pragma once

#include "app/seams/ChildProcesses.h"
#include "app/seams/Shortcuts.h"

#include <string>

namespace velmorin {

/// Shortcuts of the system's own tool. Main thread.
class ShortcutsTool final : public Shortcuts {
public:
    static constexpr const char* executable = "/usr/bin/shortcuts";

    /// `childProcesses` must outlive this.
    explicit ShortcutsTool(ChildProcesses& childProcesses) : m_childProcesses{childProcesses} {}

    void run(const std::string& name) override { m_childProcesses.start(executable, {"run", name}); }

private:
    ChildProcesses& m_childProcesses;
};

} // namespace velmorin
