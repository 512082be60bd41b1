#pragma once

#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>

namespace velmorin {

/// A service manager of this user, of its own: systemd, with a home and a runtime directory that nobody else uses. It
/// ends with this, and with it what it has started, as far as its units allow.
class UserManagerProcess {
public:
    UserManagerProcess();
    UserManagerProcess(const UserManagerProcess&) = delete;
    UserManagerProcess& operator=(const UserManagerProcess&) = delete;
    ~UserManagerProcess();

    /// Why it does not run; absent when it does.
    const std::optional<std::string>& obstacle() const { return m_obstacle; }
    const std::filesystem::path& home() const { return m_home; }
    std::filesystem::path configDirectory() const { return m_home / ".config"; }
    const std::filesystem::path& runtimeDirectory() const { return m_runtimeDirectory; }
    std::filesystem::path socket() const { return m_runtimeDirectory / "systemd" / "private"; }
    pid_t process() const { return m_process; }

private:
    void start();
    bool awaitSocket();

    TemporaryDirectory m_directory;
    std::filesystem::path m_home;
    std::filesystem::path m_runtimeDirectory;
    std::optional<std::string> m_obstacle;
    pid_t m_process = -1;
};

} // namespace velmorin
