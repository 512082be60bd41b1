#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmorin {

/// A number as it is written (RFC 8259, section 6), of whatever size. Refers to its text.
struct JSONNumber {
    std::string_view text;
    bool isNegative = false;
    std::string_view whole;
    std::string_view fraction;
    std::string_view exponent; ///< with its sign, if it has one

    /// Absent when the text has not the form of a number.
    static std::optional<JSONNumber> parse(std::string_view text);

    /// The value as an integer. False when it is not whole or does not fit; nothing is rounded on the way.
    bool read(std::int64_t& value) const;

    /// The double that is nearest. False when that would be infinite.
    bool read(double& value) const;

private:
    bool isBelowOne() const;
};

} // namespace velmorin
