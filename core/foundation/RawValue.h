#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace velmorin {

/// An enumeration whose cases have texts, which are also its stored form. It says them once, beside its definition,
/// in the order of its cases and found by its type:
///
///     constexpr std::array<std::string_view, 2> rawValues(SessionMode) { return {"pomodoro", "deep"}; }
template <class Enum>
concept RawRepresentable = requires(Enum value) {
    rawValues(value).size();
};

/// All cases, in the order of their definition.
template <RawRepresentable Enum>
constexpr auto allCases() {
    std::array<Enum, rawValues(Enum{}).size()> cases{};
    for (std::size_t index = 0; index < cases.size(); ++index)
        cases[index] = static_cast<Enum>(index);
    return cases;
}

/// The text of a case.
template <RawRepresentable Enum>
constexpr std::string_view rawValue(Enum value) {
    return rawValues(value)[static_cast<std::size_t>(value)];
}

/// The case with exactly this text; absent when there is none.
template <RawRepresentable Enum>
constexpr std::optional<Enum> fromRawValue(std::string_view text) {
    constexpr auto texts = rawValues(Enum{});
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end()) return std::nullopt;
    return static_cast<Enum>(found - texts.begin());
}

} // namespace velmorin
