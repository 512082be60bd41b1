#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// A 128-bit identifier (RFC 4122). A default one is all zeros.
struct UUID {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh random identifier of version 4, from the system's cryptographic random source. Any thread.
    static UUID random();

    /// The identifier of version 4 that 16 random bytes make.
    static UUID fromRandomBytes(const std::array<std::uint8_t, 16>& drawn);

    /// Reads the canonical form, 8-4-4-4-12 hexadecimal digits in either case. Absent for any other text.
    static std::optional<UUID> parse(std::string_view text);

    /// The canonical form: 36 characters, upper case.
    std::string text() const;

    friend auto operator<=>(const UUID&, const UUID&) = default;
};

} // namespace velmorin
