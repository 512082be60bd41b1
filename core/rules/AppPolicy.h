#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace velmorin {

/// Which applications may stay on screen during a session. Identifiers are compared exactly. Pure; any thread.
struct AppPolicy {
    using BundleIDs = std::set<std::string, std::less<>>;

    BundleIDs allowed;                       ///< by the profile, without the browsers that refuse to be read
    std::optional<std::string> selfBundleID; ///< this program's own identifier, where it has one
    std::optional<BundleIDs> onlyBlock;      ///< when present, only these are blocked and all else passes

    /// Whether an application may stay. One without an identifier counts as foreign, unless only some are blocked.
    bool isAllowed(std::optional<std::string_view> bundleID) const;

    /// Parts of the system that are always allowed.
    static bool isSystemExempt(std::string_view bundleID);

    static constexpr std::array<std::string_view, 12> systemExempt{
        "com.apple.finder",
        "com.apple.dock",
        "com.apple.loginwindow",
        "com.apple.SecurityAgent",
        "com.apple.ScreenSaver.Engine",
        "com.apple.systemuiserver",
        "com.apple.controlcenter",
        "com.apple.notificationcenterui",
        "com.apple.UserNotificationCenter",
        "com.apple.coreservices.uiagent",
        "com.apple.Spotlight",
        "com.apple.WindowManager",
    };

    /// Applications through which the lock could be ended or got round. Allowing one draws a warning, no more.
    static constexpr std::array<std::string_view, 8> escapeHatches{
        "com.apple.Terminal",        "com.googlecode.iterm2",       "dev.warp.Warp-Stable",    "com.mitchellh.ghostty",
        "com.apple.ActivityMonitor", "com.apple.systempreferences", "com.apple.ScriptEditor2", "com.apple.Automator",
    };

    bool operator==(const AppPolicy&) const = default;
};

/// Browsers whose tabs cannot be read. Allowing one draws a warning, no more.
inline constexpr std::array<std::string_view, 6> unsupportedBrowsers{
    "org.mozilla.firefox",   "company.thebrowser.Browser", "com.brave.Browser",
    "com.microsoft.edgemac", "com.operasoftware.Opera",    "com.vivaldi.Vivaldi",
};

} // namespace velmorin
