#pragma once

#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/seams/Workspace.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// Finds installed applications and starts them. Main thread; the main loop must run.
class ApplicationLauncher {
public:
    /// The id of the entry that the user has chosen for a kind of content, without ".desktop"; absent without one.
    using Choice = std::function<std::optional<std::string>(const std::string& contentType)>;

    /// `entries` must outlive this.
    explicit ApplicationLauncher(const DesktopEntries& entries, Choice choice = choiceOfUser)
        : m_entries{entries}, m_choice{std::move(choice)} {}

    /// The desktop file of an application; absent when none is installed. Of several for one identifier, the one that
    /// the user opens addresses or folders with, else the first by the identity table. One that would turn out to be
    /// something else once it runs is not given.
    std::optional<std::string> locate(std::string_view bundleID) const;

    /// Starts what a desktop file describes, with nothing to open. It lives on when this process ends, or when the
    /// service that this process may be is stopped. `userTime` is the display server's time of what led to this, by
    /// which the window manager judges whether the application may come to the front; in the background it is told
    /// not to. `display` may be empty for this process's own. A file that is missing or broken starts nothing.
    void open(const std::string& desktopFile, Workspace::Opening opening, std::uint32_t userTime,
              const std::string& display = {}) const;

    static std::optional<std::string> choiceOfUser(const std::string& contentType);

private:
    const DesktopEntries& m_entries;
    Choice m_choice;
};

} // namespace velmorin
