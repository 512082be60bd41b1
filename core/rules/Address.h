#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// The parts of an address that rules ask for. An address may lead elsewhere in a browser than it reads, so that a
/// host is given only where every reader agrees on it: letters, digits, hyphens, underscores and dots without
/// empty parts (one dot at the end may stand), an IPv4 address
/// in its usual form, or a bracketed IPv6 address in its canonical one (RFC 5952). International names are in their
/// ASCII form (Unicode Technical Standard 46), as browsers report them.
struct Address {
    std::string scheme;              ///< in lower case
    std::optional<std::string> host; ///< in lower case; absent where there is none or it is in doubt
    std::string typedHost; ///< `host` in the letters of the text, but for an international name; empty without one

    /// Absent for a text without a scheme. Any thread.
    static std::optional<Address> parse(std::string_view text);
};

} // namespace velmorin
