#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace velmorin {

/// Where a tab is shown: in which window, and whereabouts in a window that shows several at once.
struct TabPlace {
    /// The browser's own number of the window; a whole number that a script's double can hold.
    std::int64_t window = 0;
    /// 0 for the active tab, more for those that share the window with it.
    std::int64_t place = 0;

    static constexpr std::int64_t lastWindow = (std::int64_t{1} << 53) - 1;
    static constexpr std::int64_t lastPlace = 9;

    bool isValid() const { return window >= 0 && window <= lastWindow && place >= 0 && place <= lastPlace; }
    bool operator==(const TabPlace&) const = default;
};

/// A tab that a window shows.
struct ShownTab {
    TabPlace place;
    std::string address;

    bool operator==(const ShownTab&) const = default;
};

/// A window among those of all browsers: by which host it is reached, and where in its browser.
struct WindowID {
    pid_t host = 0;
    TabPlace place;

    bool operator==(const WindowID&) const = default;

    /// Digits only: the host's number, the window's with 16 digits, which hold the largest that a browser may have, and
    /// one for the place. So no two windows have the same, be it in one browser or in several.
    std::string text() const;
    /// Absent for a text that is no such identifier.
    static std::optional<WindowID> parse(std::string_view text);
};

/// An address as it may stand in a line: every byte of it that could end the line, as control characters and what
/// Unicode counts as the end of a line, is written as % and two digits. Nothing else changes, so that a second time
/// changes nothing.
std::string safeInLine(std::string_view address);

} // namespace velmorin
