#pragma once

#include "app/platform/linux/browsers/ShownTab.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// What a script asks of a host, and the host of its browser.
struct HostRequest {
    /// Absent where the tabs are to be listed.
    std::optional<TabPlace> tabToBlank;

    bool operator==(const HostRequest&) const = default;

    /// The longest line that is a request, in bytes, its end included.
    static constexpr std::size_t longestLine = 64;

    /// As a script writes it to the host: `list`, or `blank WINDOW PLACE`, and a line feed.
    std::string line() const;
    /// Reads such a line, without its line feed. Absent for any other text.
    static std::optional<HostRequest> parse(std::string_view line);
    /// As the host writes it to the browser, in JSON.
    std::string message(std::uint64_t id) const;
};

/// How a host answers a script: a line for each tab, and a last one that says that it was the last, or what failed.
namespace HostAnswer {

constexpr std::string_view end = "end\n";
/// `tab WINDOW PLACE ADDRESS`, and a line feed; the address as it may stand in a line.
std::string line(const ShownTab& tab);
/// Reads such a line, without its line feed. Absent for any other text.
std::optional<ShownTab> parseTab(std::string_view line);
/// `error REASON`, and a line feed.
std::string failure(std::string_view reason);
/// The reason in such a line, without its line feed. Absent for any other text.
std::optional<std::string> parseFailure(std::string_view line);

} // namespace HostAnswer

} // namespace velmorin
