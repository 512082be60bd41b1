#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace velmorin {

/// A browser that the extension works in. To add another one, add it to the table in the source.
struct KnownBrowser {
    /// What tells browsers apart where they differ: how a host is registered.
    enum class Family : std::uint8_t { chromium, firefox };

    /// The identifier by which scripts address it, whatever its channel or packaging.
    std::string_view identity;
    Family family;
    /// The base names of what a main process of it executes; all that the identity table of applications has for it.
    std::span<const std::string_view> executables;
    /// The folders with its profiles, below the user's configuration folder; where a Chromium looks for its hosts.
    std::span<const std::string_view> profileFolders;
};

/// All of them.
std::span<const KnownBrowser> knownBrowsers();

/// The browser with exactly this identifier; null for any other text.
const KnownBrowser* browserWithIdentity(std::string_view identity);

/// The browser that runs an executable, told by its path or base name; null for any other. A path may end in
/// " (deleted)", as the system puts it for a browser that was updated while it ran.
const KnownBrowser* browserOfExecutable(std::string_view path);

} // namespace velmorin
