#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace velmorin {

/// A text of digits as a number; absent for any other text, be it a sign, and for a number too large.
template <class Number>
std::optional<Number> parseNumber(std::string_view text) {
    if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return number;
}

} // namespace velmorin
