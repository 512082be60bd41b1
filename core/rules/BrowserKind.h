#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace velmorin {

/// The browsers whose tabs can be read, in the order in which they are polled.
enum class BrowserKind { chrome, safari };

constexpr std::array<std::string_view, 2> rawValues(BrowserKind) {
    return {"chrome", "safari"};
}

/// The identifier of the browser's application.
constexpr std::string_view bundleID(BrowserKind kind) {
    constexpr std::array<std::string_view, 2> identifiers{"com.google.Chrome", "com.apple.Safari"};
    return identifiers[static_cast<std::size_t>(kind)];
}

constexpr std::string_view displayName(BrowserKind kind) {
    constexpr std::array<std::string_view, 2> names{"Chrome", "Safari"};
    return names[static_cast<std::size_t>(kind)];
}

/// The browser with exactly this identifier; absent for any other application.
constexpr std::optional<BrowserKind> browserKind(std::string_view bundleIDOfApp) {
    for (const auto kind : {BrowserKind::chrome, BrowserKind::safari}) {
        if (bundleID(kind) == bundleIDOfApp) return kind;
    }
    return std::nullopt;
}

} // namespace velmorin
