#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace velmorin {

/// The service manager of this user, systemd, over its own socket. Every operation returns when it is done, and all of
/// them together within `patience` seconds from the making of this: from then on nothing is asked any more and
/// everything fails. Nothing else of the program is called meanwhile. Main thread.
class UserSystemd {
public:
    /// `runtimeDirectory` is the user's; empty means that there is none.
    UserSystemd(const std::filesystem::path& runtimeDirectory, double patience);
    UserSystemd(const UserSystemd&) = delete;
    UserSystemd& operator=(const UserSystemd&) = delete;
    ~UserSystemd();

    /// Whether it ran and answered when this was made.
    bool isReachable() const;
    /// Has it read its unit files again.
    bool reload();
    /// Starts a unit, or starts it again, and returns when it is active, or when it has come to anything else.
    bool restart(std::string_view unit);
    /// Stops a unit and returns when it is not active any more. True also when there is none.
    bool stop(std::string_view unit);
    /// Has it forget that a unit has failed.
    void resetFailed(std::string_view unit);

private:
    class Connection;

    std::unique_ptr<Connection> m_connection;
    bool m_isReachable;
};

} // namespace velmorin
